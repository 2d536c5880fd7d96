#pragma once
// Ghost mode: from the buddy list to the client's "Privacy Preferences" page, whose controls are
// set and saved. Old: generations 2 and 3 (seven buttons, all set); new: 4 and 5 (check boxes,
// only the ones to set are touched). Fixed scripts; every wait is unlimited.
#include "client/window_system.h"

namespace qc {

void GhostOnOld(WindowSystem& ws);
void GhostOffOld(WindowSystem& ws);
void GhostOnNew(WindowSystem& ws);
void GhostOffNew(WindowSystem& ws);

}  // namespace qc
