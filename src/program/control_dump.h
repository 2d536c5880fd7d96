#pragma once
// For tests that drive the real program from outside (under Xvfb): when the environment names a
// file in QC_CONTROL_DUMP, the program keeps in it what its windows show, a few times a second.
// One line per window and per control, in screen pixels:
//   window <name> "<title>" <x> <y> <w> <h> [hidden]
//   <name> <class> <x> <y> <w> <h> [hidden] | <shown text>
//   <name>[<row>] <x> <y> <w> <h> | <shown text>          (rows a list shows)
// Line breaks in texts are written as \n.
#include <QString>

namespace qc {

// Starts the dump when QC_CONTROL_DUMP is set; nothing otherwise.
void StartControlDumpFromEnvironment();

// The text written to the dump file, for the windows open now.
QString ControlDump();

}  // namespace qc
