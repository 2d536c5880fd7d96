#include "base/numbers.h"

#include "base/failure.h"

#include <charconv>
#include <cmath>

namespace qc {

double RoundTo(double value, std::int16_t decimals) {
  double p = std::pow(10.0, decimals);
  return std::floor(value * p + 0.5) / p;
}

double LeadingNumber(const std::string& text) {
  std::size_t i = 0;
  while (i < text.size() && text[i] == ' ') ++i;
  std::string digits;
  bool point = false;
  for (; i < text.size(); ++i) {
    char c = text[i];
    if (c >= '0' && c <= '9') {
      digits += c;
    } else if (c == '.' && !point) {
      point = true;
      digits += c;
    } else {
      break;
    }
  }
  if (digits.empty() || digits == ".") return 0;
  // from_chars reads a full stop whatever the process's locale; strtod would not.
  double value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return value;
}

namespace {

// Up to 15 significant digits, exponent form like the platform's ("1E+15", "1.5E-07").
std::string FifteenDigits(double value) {
  if (value == 0) return "0";
  // to_chars writes a full stop whatever the process's locale; printf would not.
  char buf[64];
  const auto written = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::general, 15);
  std::string s(buf, written.ptr);
  std::size_t e = s.find('e');
  std::string mant = e == std::string::npos ? s : s.substr(0, e);
  std::string exp = e == std::string::npos ? "" : s.substr(e);
  if (mant.find('.') != std::string::npos) {
    while (!mant.empty() && mant.back() == '0') mant.pop_back();
    if (!mant.empty() && mant.back() == '.') mant.pop_back();
  }
  if (!exp.empty()) {
    // "E+05" -> "E+05" stays two digits at least; "E+015" never occurs with %G.
    char sign = exp[1];
    std::string digits = exp.substr(2);
    while (digits.size() > 2 && digits[0] == '0') digits.erase(0, 1);
    exp = std::string("E") + sign + digits;  // the platform's capital E
  }
  return mant + exp;
}

}  // namespace

std::string PlainNumberText(double value) {
  std::string s = FifteenDigits(value);
  // the formatter already writes "0.5"; normalise a stray "-0"
  if (s == "-0") s = "0";
  return s;
}

std::string PaddedNumberText(double value) {
  std::string s = PlainNumberText(value);
  bool negative = !s.empty() && s[0] == '-';
  if (negative) s.erase(0, 1);
  if (s.size() > 1 && s[0] == '0' && s[1] == '.') s.erase(0, 1);
  return (negative ? "-" : " ") + s;
}

std::string SizeText(std::int64_t bytes) {
  return Trim(PaddedNumberText(RoundTo(static_cast<double>(bytes) / 1000000.0, 2)));
}

std::int16_t ToInteger16(long long value) {
  if (value < -32768 || value > 32767) RaiseFailure(kOverflow);
  return static_cast<std::int16_t>(value);
}

std::string Trim(const std::string& text) {
  std::size_t b = text.find_first_not_of(' ');
  if (b == std::string::npos) return "";
  std::size_t e = text.find_last_not_of(' ');
  return text.substr(b, e - b + 1);
}

}  // namespace qc
