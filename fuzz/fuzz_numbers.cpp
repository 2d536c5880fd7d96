// The number readers of stored settings and counter labels on arbitrary text: LeadingNumber
// (counters, flags), the flag test, and the fixed-point reading of the megabyte total with its
// size text. A text that is not a number, or one too large for the fixed-point type, fails as
// the platform's conversion does; nothing else may go wrong.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "ui/settings_store.h"
#include "run/stats.h"
#include "base/failure.h"
#include "base/numbers.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);

  const double n = qc::LeadingNumber(text);
  if (std::isnan(n) || n < 0) std::abort();
  if (qc::FlagIsOn(text) != (n != 0)) std::abort();
  // A counter grows by its text: what is written is read back as the same number, up to the
  // fifteen digits that the text holds (from 1e15 on it is written with an exponent).
  if (std::isfinite(n) && n + 1 < 1e15) {
    const std::string counter = qc::PlainNumberText(n + 1);
    const double back = qc::LeadingNumber(counter);
    if (std::fabs(back - (n + 1)) > 1e-9 * (n + 1)) std::abort();
    (void)qc::PaddedNumberText(qc::RoundTo(n, 2));
  }

  try {
    const std::int64_t units = qc::ToCurrency(text);
    const std::string shown = qc::StandardFormat(units);
    if (shown.find('.') == std::string::npos) std::abort();
    const std::string total = qc::TotalSizeText(text);
    if (total.size() < 4) std::abort();
  } catch (const qc::RuntimeFailure& f) {
    if (f.number() != qc::kTypeMismatch && f.number() != qc::kOverflow) std::abort();
  }
  return 0;
}
