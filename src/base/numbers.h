#pragma once
// Number helpers shared by every subsystem. Number text always uses the full stop.
#include <cstdint>
#include <string>

namespace qc {

// Largest whole number not above value * 10^decimals + 0.5, divided back: halves round upwards,
// also for negative values (-2.5 with no decimals gives -2).
double RoundTo(double value, std::int16_t decimals);

// The number at the head of a text: leading blanks skipped, digits with at most one full stop;
// 0 when there is none.
double LeadingNumber(const std::string& text);

// " 12", " .5", " 3.5", "-.5": a blank before a non-negative value, no zero before the point.
std::string PaddedNumberText(double value);

// "12", "0.5": no padding, a zero before the point, up to 15 significant digits.
std::string PlainNumberText(double value);

// A file size in decimal megabytes as shown: bytes / 1000000 rounded to 2 decimals, padded form
// trimmed. 700,000 gives ".7", 3,000,000 gives "3".
std::string SizeText(std::int64_t bytes);

// A whole number as the platform's signed 16-bit integer (list indexes and counts): values
// outside -32768..32767 raise the overflow failure.
std::int16_t ToInteger16(long long value);

// Drops leading and trailing blanks (U+0020), like the platform's Trim.
std::string Trim(const std::string& text);

}  // namespace qc
