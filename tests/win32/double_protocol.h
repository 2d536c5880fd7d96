#pragma once
// What the Win32 client double and its harness agree on.
namespace qc::win32double {

// The double's control window, created once its client windows stand.
inline constexpr char kControlClass[] = "QuillcastDouble";
// Sent to the control window: the double writes its report file and returns 1.
inline constexpr char kReportMessageName[] = "QuillcastDoubleReport";

}  // namespace qc::win32double
