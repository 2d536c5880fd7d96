#include "run/stats.h"

#include <QAction>
#include <QObject>
#include <cctype>
#include <limits>

#include "ui/frmmain.h"
#include "ui/frmmenu.h"
#include "ui/services.h"
#include "run/runlog.h"
#include "base/failure.h"
#include "base/numbers.h"
#include "base/prompts.h"

namespace qc {
namespace {

constexpr std::int64_t kUnitsPerWhole = 10000;

// Decimal digits with the position of the point, exact: no binary fraction on the way.
struct DecimalText {
  bool negative = false;
  std::string digits;
  long long pointAt = 0;  // how many of the digits stand before the decimal point
};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Signed digits with thousands separators, one point and an exponent, blanks around.
bool ParseDecimal(const std::string& text, DecimalText& out) {
  std::size_t i = 0;
  const std::size_t n = text.size();
  while (i < n && text[i] == ' ') ++i;
  if (i < n && (text[i] == '+' || text[i] == '-')) out.negative = text[i++] == '-';
  bool any = false, point = false;
  for (; i < n; ++i) {
    const char c = text[i];
    if (IsDigit(c)) {
      out.digits += c;
      if (!point) ++out.pointAt;
      any = true;
    } else if (c == ',' && !point && any) {
      continue;
    } else if (c == '.' && !point) {
      point = true;
    } else {
      break;
    }
  }
  if (!any) return false;
  if (i < n && (text[i] == 'e' || text[i] == 'E')) {
    ++i;
    bool negExp = false;
    if (i < n && (text[i] == '+' || text[i] == '-')) negExp = text[i++] == '-';
    if (i >= n || !IsDigit(text[i])) return false;
    long long exp = 0;
    for (; i < n && IsDigit(text[i]); ++i) exp = std::min<long long>(exp * 10 + (text[i] - '0'), 100000);
    out.pointAt += negExp ? -exp : exp;
  }
  while (i < n && text[i] == ' ') ++i;
  return i == n;
}

// Halves go to the even neighbour, as the platform's conversions do.
std::int64_t DivideToEven(std::int64_t value, std::int64_t divisor) {
  std::int64_t q = value / divisor;
  const std::int64_t r = value % divisor;
  const std::int64_t twice = 2 * (r < 0 ? -r : r);
  const std::int64_t step = value < 0 ? -1 : 1;
  if (twice > divisor || (twice == divisor && q % 2 != 0)) q += step;
  return q;
}

std::string Grouped(std::uint64_t whole) {
  std::string s = std::to_string(whole);
  for (int at = static_cast<int>(s.size()) - 3; at > 0; at -= 3) s.insert(static_cast<std::size_t>(at), ",");
  return s;
}

}  // namespace

void ShowTotalsLine(FrmMain& f) {
  f.Label1->SetCaption(f.lblUps->Caption() + " ups : " + f.lblMBs->Caption() + " mb");
}

void ShowRunTotalLine(FrmMain& f) {
  f.lblTagTotal->SetCaption("total: " + f.lblTagTotalMb->Caption() + " mb : " +
                            f.lblTagTotalUps->Caption() + " ups");
}

void ConnectStats(FrmMain& f, FrmMenu& menu, const Services& services) {
  for (Label* l : {f.lblUps, f.lblMBs})
    QObject::connect(l, &Label::changed, l, [&f] { ShowTotalsLine(f); });
  for (Label* l : {f.lblTagTotalMb, f.lblTagTotalUps})
    QObject::connect(l, &Label::changed, l, [&f] { ShowRunTotalLine(f); });
  ShowTotalsLine(f);
  ShowRunTotalLine(f);
  QObject::connect(menu.calcMb, &QAction::triggered, &f, [&f, &services] { ShowMbTotal(f, services.prompts); });
}

std::int64_t ToCurrency(const std::string& text) {
  DecimalText d;
  if (!ParseDecimal(text, d)) RaiseFailure(kTypeMismatch);
  const std::size_t first = d.digits.find_first_not_of('0');
  if (first == std::string::npos) return 0;
  // Drop leading zeros; the point stays where it was relative to the other digits.
  d.pointAt -= static_cast<long long>(first);
  d.digits.erase(0, first);
  // In ten-thousandths the point stands four places further right.
  const long long at = d.pointAt + 4;
  const auto size = static_cast<long long>(d.digits.size());
  // The type holds 19 digits; a longer whole part always overflows.
  if (at > 19) RaiseFailure(kOverflow);
  std::string whole, rest;
  if (at <= 0) {
    rest = at < 0 ? "0" : d.digits;  // below a tenth of a unit: rounds to nothing
  } else if (at >= size) {
    whole = d.digits + std::string(static_cast<std::size_t>(at - size), '0');
  } else {
    whole = d.digits.substr(0, static_cast<std::size_t>(at));
    rest = d.digits.substr(static_cast<std::size_t>(at));
  }
  unsigned long long magnitude = whole.empty() ? 0 : std::stoull(whole);
  if (!rest.empty()) {
    const bool pastHalf =
        rest[0] > '5' || (rest[0] == '5' && rest.find_first_not_of('0', 1) != std::string::npos);
    const bool half = rest[0] == '5' && !pastHalf;
    if (pastHalf || (half && magnitude % 2 != 0)) ++magnitude;
  }
  const auto largest = static_cast<unsigned long long>(std::numeric_limits<std::int64_t>::max());
  if (magnitude > largest + (d.negative ? 1 : 0)) RaiseFailure(kOverflow);
  if (d.negative) return magnitude > largest ? std::numeric_limits<std::int64_t>::min()
                                             : -static_cast<std::int64_t>(magnitude);
  return static_cast<std::int64_t>(magnitude);
}

std::string StandardFormat(std::int64_t units) {
  // Hundredths, halves away from zero, as the format rounds the decimal text it is given.
  const bool negative = units < 0;
  const std::uint64_t magnitude =
      negative ? static_cast<std::uint64_t>(-(units + 1)) + 1 : static_cast<std::uint64_t>(units);
  const std::uint64_t hundredths = magnitude / 100 + (magnitude % 100 >= 50 ? 1 : 0);
  const std::uint64_t cents = hundredths % 100;
  std::string s = Grouped(hundredths / 100) + "." + (cents < 10 ? "0" : "") + std::to_string(cents);
  return (negative && hundredths != 0 ? "-" : "") + s;
}

std::string TotalSizeText(const std::string& megabytes) {
  std::int64_t total = ToCurrency(megabytes);
  std::string unit = "mbs";
  if (total >= 1000 * kUnitsPerWhole) {
    total = DivideToEven(total, 1000);
    unit = "gigs";
  }
  // The number goes through its padded text first; for a fixed-point value that text is exact,
  // so formatting the value itself gives the same digits.
  return StandardFormat(total) + unit;
}

std::string TotalSizeText(const FrmMain& f) { return TotalSizeText(f.lblMBs->Caption()); }

void ShowMbTotal(const FrmMain& f, Prompts& prompts) {
  const std::int16_t count = f.lstPathSelect->ListCount();
  if (count == 0) {
    prompts.MsgBox(
        "cannot calculate megabytes because you have not selected files to upload.",
        kCritical | kSystemModal, "error:");
    return;
  }
  double sum = 0;
  for (std::int16_t i = 0; i < count; ++i) sum += RoundedMegabytes(f.lstPathSelect->List(i));
  prompts.MsgBox("total size of mp3s: " + Trim(PaddedNumberText(sum)) + "mb",
                 kInformation | kSystemModal, "mb calc.");
}

}  // namespace qc
