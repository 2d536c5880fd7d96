#include "catalogue/info_mode.h"

#include "ui/list_box.h"
#include "ui/window_routines.h"
#include "ui/frmmain.h"
#include "base/numbers.h"
#include "codec/id3v1.h"
#include "catalogue/folder_list.h"
#include "text/text_files.h"

namespace qc {

namespace {

long long IndexInView(const FrmMain& f) {
  return static_cast<long long>(LeadingNumber(f.lstPathSelect->Tag.toStdString()));
}

std::string NumberText(long long n) { return Trim(PaddedNumberText(static_cast<double>(n))); }

// Stores the index and shows the file at it, for a list that is not empty.
void ShowAt(FrmMain& f, long long index, InfoCaller caller) {
  const std::int16_t count = f.lstPathSelect->ListCount();
  f.lstPathSelect->Tag = QString::number(index);
  f.lblIndex->SetCaption(NumberText(index + 1) + "/" + NumberText(count));
  ShowFileInfo(f, static_cast<int>(index), caller);
}

void Step(FrmMain& f, int delta) {
  const std::int16_t count = f.lstPathSelect->ListCount();
  if (count == 0) return;
  long long index = ToInteger16(IndexInView(f) + delta);
  if (index > count - 1) index = 0;
  if (index < 0) index = count - 1;
  ShowAt(f, index, InfoCaller::kStep);
}

}  // namespace

void ShowFileInfo(FrmMain& f, int index, InfoCaller caller) {
  const std::string path = f.lstPathSelect->List(index);
  const std::string name = LastPathComponent(path);
  const std::string missing = caller == InfoCaller::kEnter ? "none" : "unknown";
  if (HasId3Tag(path)) {
    const Id3Tag tag = ReadId3Tag(path);
    f.lblTitle->SetCaption("title: " + tag.title);
    f.lblArtist->SetCaption("artist: " + tag.artist);
    f.lblAlbum->SetCaption("album: " + tag.album);
    f.lblGenre->SetCaption("genre: " + tag.genre);
    f.lblYear->SetCaption("yr: " + tag.year);
  } else {
    f.lblTitle->SetCaption("title: " + name);
    f.lblArtist->SetCaption("artist: " + missing);
    f.lblAlbum->SetCaption("album: " + missing);
    f.lblGenre->SetCaption("genre: " + missing);
    f.lblYear->SetCaption("yr: 1999");
  }
  f.lblMb->SetCaption("mb: " + SizeText(FileLength(path)));
  f.txtSubj->SetText(f.lstSubj->List(index));
  // Setting the same text again reports no change, yet the box must agree with the line.
  SubjectTextChanged(f);
}

void GoSelectMode(FrmMain& f) {
  SetTwipsTop(f.pnlSelect, kPanelShownTop);
  SetTwipsTop(f.pnlInfo, kPanelHiddenTop);
}

void GoInfoMode(FrmMain& f) {
  SetTwipsTop(f.pnlInfo, kPanelShownTop);
  SetTwipsTop(f.pnlSelect, kPanelHiddenTop);
  if (f.lstPathSelect->ListCount() == 0) return;
  ShowAt(f, 0, InfoCaller::kEnter);
}

void ShowNextFile(FrmMain& f) { Step(f, +1); }
void ShowPreviousFile(FrmMain& f) { Step(f, -1); }

void SubjectTextChanged(FrmMain& f) {
  // The box holds a stored line up to its first NUL; that is the line as it can hold it.
  const std::string stored = f.lstSubj->List(IndexInView(f));
  f.txtSubj->SetBackColor(f.txtSubj->Holds(stored) ? kSubjectUnchangedColour : 0xFFFFFFu);
}

void SubjectKeyPress(FrmMain& f, int keyAscii) {
  if (keyAscii != 13) return;
  if (f.lstSubj->ListCount() == 0) return;
  f.txtSubj->SetBackColor(kSubjectUnchangedColour);
  const long long index = IndexInView(f);
  f.lstSubj->RemoveItem(index);
  f.lstSubj->AddItem(f.txtSubj->Text(), index);
}

}  // namespace qc
