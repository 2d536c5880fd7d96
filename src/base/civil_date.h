#pragma once
// A calendar date, and the machine's own today.
namespace qc {

struct CivilDate {
  int year = 1999;
  unsigned month = 1;  // 1 .. 12
  unsigned day = 1;    // 1 .. 31
};

// The local date of the machine.
CivilDate MachineToday();

}  // namespace qc
