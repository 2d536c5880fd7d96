#include "run/tagging_run.h"

#include <QAction>

#include "ui/app_path.h"
#include "ui/settings_store.h"
#include "ui/window_routines.h"
#include "run/dates.h"
#include "ui/frmmain.h"
#include "ui/frmmenu.h"
#include "ui/list_addresses.h"
#include "ui/services.h"
#include "run/runlog.h"
#include "base/numbers.h"
#include "base/prompts.h"
#include "base/pump.h"
#include "codec/id3v1.h"
#include "client/vocabulary.h"
#include "client/window_system.h"
#include "mail/mail_editors.h"
#include "text/template_keys.h"
#include "text/text.h"
#include "text/text_files.h"

namespace qc {
namespace {

constexpr char kCrLf[] = "\r\n";

std::string TrimmedNumber(double value) { return Trim(PaddedNumberText(value)); }

void AppendListFile(ListBox& list, const std::string& path) {
  LoadListFile(path, [&list](const std::string& item) { list.AddItem(item); });
}

// The start and end notices go out only on the generations whose notice driver exists.
void SendNotice(const FrmMain& frmMain, const FrmMenu& frmMenu, const Services& services,
                const std::string& recipients, const char* word) {
  const RunDrivers& drivers = services.drivers;
  const std::string decorLeft = services.settings.Read(Setting::kAscii1);
  const std::string decorRight = services.settings.Read(Setting::kAscii2);
  if (drivers.clientVersion() == 3) {
    const std::string subject = decorLeft + word + frmMenu.lblHandle->Caption() + " " +
                                SelectedMbTotal(frmMain) + "mb " + decorRight;
    const std::string body = CompileRunLog(frmMain, services.today());
    drivers.sendNoticeMail95(recipients, subject, body);
  }
  if (drivers.clientVersion() == 5) {
    const std::string subject = decorLeft + word + frmMenu.lblHandle->Caption() + " " +
                                SelectedMbTotal(frmMain) + "mb " + decorRight;
    const std::string body = CompileRunLog(frmMain, services.today());
    drivers.sendNoticeMail50(recipients, subject, body);
  }
}

}  // namespace

std::string DefaultBodyTemplate() {
  return std::string("quill cast : v.qc23e : brindle") + kCrLf + kCrLf + "title: idTitle$" +
         kCrLf + "artist: idArtist$" + kCrLf + "album: idAlbum$" + kCrLf +
         "release year: idYear$" + kCrLf + "genre: idGenre$" + kCrLf + "upload date: sysDate$" +
         kCrLf + "uploaded by: myHandle$" + kCrLf + "file size: fileSize$" + kCrLf +
         "file name: fileName$" + kCrLf + "comment: idComment$";
}

std::string BodyClosingLine() {
  return "</P><P ALIGN=RIGHT><FONT  COLOR=\"#0080ff\" SIZE=2 PTSIZE=7 FAMILY=\"SANSSERIF\" "
         "FACE=\"Tahoma\" LANG=\"0\">file taged by quill cast v.qc23e brindle</P>";
}

void StopRun(FrmMain& frmMain) {
  frmMain.picBut1->setEnabled(true);
  frmMain.picBut2->setEnabled(false);
  frmMain.picBut1->Tag = QStringLiteral("stop");
}

void TaggingRun(FrmMain& frmMain, FrmMenu& frmMenu, const Services& services) {
  if (frmMain.lstPathSelect->ListCount() == 0) {
    services.prompts.MsgBox("you have not selected files to upload.", kCritical | kSystemModal,
                            "error:");
    return;
  }
  const RunDrivers& drivers = services.drivers;
  WindowSystem& ws = services.windows;

  frmMain.picBut1->Tag = QStringLiteral("tag");
  frmMain.picBut1->setEnabled(false);
  frmMain.picBut2->setEnabled(true);
  SetTwipsTop(frmMain.pnlTag, kPanelShownTop);

  // Kept for the whole run, even if the client restarts under it.
  const Hwnd clientArea = ws.FindWindowExA(ws.FindWindowA(aol::kFrameClass, std::nullopt), 0,
                                           aol::kMdiClientUpperClass, std::nullopt);

  frmMain.lblTagTotalMb->SetCaption("0");
  frmMain.lblTagTotalUps->SetCaption("0");
  frmMain.lblTagIndex->SetCaption("0/0");
  frmMain.lblTagSubj->SetCaption("");
  frmMain.lblTagMb->SetCaption("0 mb");

  // The sender always gets a copy of everything; duplicates stay.
  frmMain.lstSend->Clear();
  frmMain.lstSend->AddItem(drivers.clientScreenName());
  if (frmMenu.check(Option::kMemberLst)) AppendListFile(*frmMain.lstSend, MemberListPath());
  if (frmMenu.check(Option::kUploadLst)) AppendListFile(*frmMain.lstSend, UploadListPath());

  if (frmMenu.check(Option::kDeadCheckNames)) {
    ListBoxAddresses sendList(*frmMain.lstSend);
    drivers.checkFullBoxes(sendList);
    Pause(0.7);
  }

  std::string recipients;
  for (std::int16_t i = 0; i < frmMain.lstSend->ListCount(); ++i) {
    if (frmMenu.check(Option::kBbcEmail)) {
      recipients += "(" + frmMain.lstSend->List(i) + "), ";
    } else {
      recipients += frmMain.lstSend->List(i) + ", ";
    }
  }

  if (frmMenu.check(Option::kAutoHead)) SendNotice(frmMain, frmMenu, services, recipients, " start: ");

  const std::int16_t count = frmMain.lstPathSelect->ListCount();
  for (std::int16_t index = 0; index < count; ++index) {
    // The only stop test: between files, before anything is done for the next one.
    if (frmMain.picBut1->Tag == QStringLiteral("stop")) break;

    const Hwnd errorWindow = ws.FindWindowExA(clientArea, 0, aol::kChildClass, "Error");
    if (errorWindow != 0) {
      std::int32_t zero = 0;
      ws.SendMessageA(errorWindow, aol::kWmClose, 0, LParam::Word(zero));
      Pause(0.3);
    }

    const std::string path = frmMain.lstPathSelect->List(index);
    Id3Tag tag = ReadId3Tag(path);
    if (frmMenu.check(Option::kRenameComment)) {
      WriteId3Tag(path, tag.title, tag.artist, tag.album, tag.year,
                  frmMenu.lblRename->Caption(), tag.genre);
    }
    tag = ReadId3Tag(path);

    // The same file the body editor writes, beside the program's folder.
    std::string bodyText = ReadTextFile(BodyTemplatePath());
    if (bodyText.empty()) bodyText = DefaultBodyTemplate();
    bodyText += std::string(kCrLf) + kCrLf + kCrLf + BodyClosingLine();

    const std::string shortName = ShortFileName(path);
    // A vanished file fails here and takes the program down.
    const double roundedMb = RoundedMegabytes(path);

    ExpandKeys(bodyText, kBodyKeyOrder, [&](TemplateKey key) -> std::string {
      switch (key) {
        case TemplateKey::kIdTitle: return tag.title;
        case TemplateKey::kIdArtist: return tag.artist;
        case TemplateKey::kIdAlbum: return tag.album;
        case TemplateKey::kIdYear: return tag.year;
        case TemplateKey::kIdGenre: return tag.genre;
        case TemplateKey::kSysDate: return LongDateText(services.today());
        case TemplateKey::kMyHandle: return frmMenu.lblHandle->Caption();
        case TemplateKey::kFileSize: return TrimmedNumber(roundedMb) + "mb";
        case TemplateKey::kFileName: return shortName;
        case TemplateKey::kIdComment: return tag.comment;
      }
      return {};
    });

    std::string subjectText = frmMain.lstSubj->List(index);
    if (frmMenu.check(Option::kMakeSubLCase)) subjectText = LowerCase(subjectText);

    frmMain.lblTagTotalMb->SetCaption(
        PlainNumberText(LeadingNumber(frmMain.lblTagTotalMb->Caption()) + roundedMb));
    frmMain.lblTagTotalUps->SetCaption(
        PlainNumberText(LeadingNumber(frmMain.lblTagTotalUps->Caption()) + 1));
    frmMain.lblTagSubj->SetCaption(subjectText);
    frmMain.lblTagIndex->SetCaption(
        Trim(PaddedNumberText(index + 1) + "/" +
             PaddedNumberText(frmMain.lstPathSelect->ListCount())));
    frmMain.lblTagMb->SetCaption(TrimmedNumber(roundedMb) + " mb");

    // Generation 2 has no driver; its files count all the same.
    if (drivers.clientVersion() == 3) {
      drivers.sendFileMail95(recipients, subjectText, bodyText,
                             frmMain.lstPathSelect->List(index), frmMenu.check(Option::kSendLater));
    }
    if (drivers.clientVersion() == 5) {
      drivers.sendFileMail50(recipients, subjectText, bodyText,
                             frmMain.lstPathSelect->List(index), frmMenu.check(Option::kSendLater));
    }
    if (drivers.clientVersion() == 4) {
      drivers.sendFileMail40(recipients, subjectText, bodyText,
                             frmMain.lstPathSelect->List(index), frmMenu.check(Option::kSendLater));
    }

    frmMain.lblUps->SetCaption(PlainNumberText(LeadingNumber(frmMain.lblUps->Caption()) + 1));
    frmMain.lblMBs->SetCaption(
        PlainNumberText(LeadingNumber(frmMain.lblMBs->Caption()) + roundedMb));
    Pause(0.7);
  }
  Pause(0.01);

  // The selection is still there: the end notice covers every chosen file, sent or skipped.
  if (frmMenu.check(Option::kAutoFoot)) SendNotice(frmMain, frmMenu, services, recipients, " end: ");
  Pause(0.1);

  if (frmMenu.check(Option::kSendLater)) {
    if (drivers.clientVersion() == 3) drivers.runMainMenu(aol::kMenuOutgoingMail);
    if (drivers.clientVersion() == 5) {
      Pause(0.5);
      drivers.runToolbarMenu(3, 15);
    }
    if (drivers.clientVersion() == 4) {
      Pause(0.5);
      drivers.openOutgoingMail40();
    }
  }

  // Used up whether the run finished or was stopped.
  frmMain.lstUp->Clear();
  frmMain.lstPathSelect->Clear();
  frmMain.lstSubj->Clear();

  SetTwipsTop(frmMain.pnlTag, kTagPanelIdleTop);
  frmMain.picBut1->setEnabled(true);
  frmMain.picBut2->setEnabled(false);
}

void ConnectTaggingRun(FrmMain& frmMain, FrmMenu& frmMenu, const Services& services) {
  FrmMain* main = &frmMain;
  FrmMenu* menu = &frmMenu;
  QObject::connect(frmMain.picBut1, &Label::clicked, frmMain.picBut1,
                   [main, menu, &services] { TaggingRun(*main, *menu, services); });
  QObject::connect(frmMain.picBut2, &Label::clicked, frmMain.picBut2,
                   [main] { StopRun(*main); });
}

}  // namespace qc
