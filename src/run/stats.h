#pragma once
// Run statistics: counters kept as label texts on frmMain, their sum lines, the size text of the
// chat lines, the megabyte calculator and the reset.
#include <cstdint>
#include <string>

namespace qc {

class FrmMain;
class FrmMenu;
class Prompts;
struct Services;

// Sum lines: Label1 from lblUps and lblMBs, lblTagTotal from lblTagTotalMb and lblTagTotalUps,
// each from the labels' texts as they stand.
void ShowTotalsLine(FrmMain& frmMain);
void ShowRunTotalLine(FrmMain& frmMain);

// Connects the change handlers of the four counter labels and runs them once, as at load, and
// connects the menu item calcMb.
void ConnectStats(FrmMain& frmMain, FrmMenu& frmMenu, const Services& services);

// "85.20mbs", "1.23gigs", "1,500.00gigs": from the text of lblMBs. A text that is not a number,
// or one too large for the fixed-point type, raises the type-mismatch or overflow failure.
std::string TotalSizeText(const FrmMain& frmMain);
std::string TotalSizeText(const std::string& megabytes);

// The fixed-point currency conversion: ten-thousandths, rounded to them (halves to even).
// Raises type mismatch for a text that is not a number and overflow past the type's range.
std::int64_t ToCurrency(const std::string& text);

// The "standard" number format of a fixed-point value: thousands separators, two decimals.
std::string StandardFormat(std::int64_t tenThousandths);

// Shows the total size of the chosen files, or an error box when none is chosen.
void ShowMbTotal(const FrmMain& frmMain, Prompts& prompts);

}  // namespace qc
