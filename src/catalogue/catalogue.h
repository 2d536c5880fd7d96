#pragma once
// Binds the catalogue's handlers to the main window's select and info panels and to frmMenu2.
namespace qc {

class FrmMain;
class FrmMenu2;
struct Services;

// Pressed colour 0x9F8660 of the small labels while the button is down, black when released.
inline constexpr unsigned kLabelPressedColour = 0x9F8660;

void ConnectCatalogue(FrmMain& frmMain, FrmMenu2& frmMenu2, const Services& services);

}  // namespace qc
