#pragma once
// The client's window vocabulary: classes, captions, texts, message numbers and keys. Every
// driver names the client's windows through these, so that a spelling lives in one place.
// Classes are matched without regard to case; where the client's tree is looked up under both
// spellings, both are here. Captions are matched exactly.
#include <cstdint>

namespace qc::aol {

// Classes.
inline constexpr char kFrameClass[] = "AOL Frame25";
inline constexpr char kMdiClientClass[] = "MDIClient";
inline constexpr char kMdiClientUpperClass[] = "MDICLIENT";
inline constexpr char kToolbarHostClass[] = "AOL Toolbar";
inline constexpr char kToolbarClass[] = "_AOL_Toolbar";
inline constexpr char kIconClass[] = "_AOL_Icon";
inline constexpr char kComboboxClass[] = "_AOL_Combobox";
inline constexpr char kFontcomboClass[] = "_AOL_Fontcombo";
inline constexpr char kEditClass[] = "Edit";       // the keyword box's field; "Attach File" dialog
inline constexpr char kEditLowerClass[] = "edit";  // the "Attach" dialog's field
inline constexpr char kGlyphClass[] = "_AOL_Glyph";
inline constexpr char kChildClass[] = "AOL Child";
inline constexpr char kAolEditClass[] = "_AOL_Edit";
inline constexpr char kRichTextClass[] = "RICHCNTL";
inline constexpr char kAolButtonClass[] = "_AOL_Button";
inline constexpr char kCheckboxClass[] = "_AOL_Checkbox";
inline constexpr char kViewClass[] = "_AOL_View";
inline constexpr char kStaticClass[] = "_AOL_Static";
inline constexpr char kListboxClass[] = "_AOL_Listbox";
inline constexpr char kModalClass[] = "_AOL_Modal";
inline constexpr char kModalUpperClass[] = "_AOL_MODAL";
inline constexpr char kDialogClass[] = "#32770";
inline constexpr char kButtonClass[] = "Button";
inline constexpr char kButtonLowerClass[] = "button";
inline constexpr char kPopupMenuClass[] = "#32768";

// Captions (exact) and caption texts.
inline constexpr char kFrameCaption[] = "America  Online";  // two blanks
inline constexpr char kWriteMailCaption[] = "Write Mail";
inline constexpr char kComposeMailCaption[] = "Compose Mail";
inline constexpr char kKeywordCaption[] = "Keyword";
inline constexpr char kErrorCaption[] = "Error";
inline constexpr char kSendLaterCaption[] = "Send Later";
inline constexpr char kSendImCaption[] = "Send Instant Message";
inline constexpr char kPrivacyCaption[] = "Privacy Preferences";
inline constexpr char kAttachmentsCaption[] = "Attachments";
inline constexpr char kAttachCaption[] = "Attach";
inline constexpr char kAttachFileCaption[] = "Attach File";
inline constexpr char kAolDialogCaption[] = "America Online";  // one blank
inline constexpr char kOkCaption[] = "OK";
inline constexpr char kNoCaption[] = "&No";
inline constexpr char kWelcomePrefix[] = "Welcome, ";      // caption begins with it
inline constexpr char kBuddyListMark[] = "'s Buddy List";    // text holds it
inline constexpr char kBuddyListsSuffix[] = "'s Buddy Lists";  // screen name + this, exact

// Main menu entries run by text.
inline constexpr char kMenuComposeMail[] = "&Compose Mail";
inline constexpr char kMenuKeyword[] = "Keyword...";
inline constexpr char kMenuSendIm[] = "Send An Instant Message";
inline constexpr char kMenuOutgoingMail[] = "Read &Outgoing Flashmail";
inline constexpr char kMenuAbout[] = "&About America Online";

// Texts typed into the client.
inline constexpr char kImKeywordPrefix[] = "aol://9293:";
inline constexpr char kKeywordBuddy[] = "Buddy";
inline constexpr char kKeywordBuddylist[] = "Buddylist";

// Messages, by the numbers used.
inline constexpr std::uint32_t kWmSetText = 12;
inline constexpr std::uint32_t kWmGetText = 13;
inline constexpr std::uint32_t kWmGetTextLength = 14;
inline constexpr std::uint32_t kWmClose = 16;
inline constexpr std::uint32_t kBmSetCheck = 241;
inline constexpr std::uint32_t kWmKeyDown = 256;
inline constexpr std::uint32_t kWmKeyUp = 257;
inline constexpr std::uint32_t kWmChar = 258;
inline constexpr std::uint32_t kWmCommand = 273;
inline constexpr std::uint32_t kWmLButtonDown = 513;
inline constexpr std::uint32_t kWmLButtonUp = 514;

// Keys.
inline constexpr std::int32_t kKeyEnter = 13;
inline constexpr std::int32_t kKeySpace = 32;
inline constexpr std::int32_t kKeyUp = 38;
inline constexpr std::int32_t kKeyRight = 39;
inline constexpr std::int32_t kKeyDown = 40;

// BM_SETCHECK states, ShowWindow's hide command.
inline constexpr std::int32_t kCheckClear = 0;
inline constexpr std::int32_t kCheckSet = -1;
inline constexpr std::int32_t kHide = 0;

// How menu texts are read: a text of 100 blanks, length 100, flags 1 (the item is a command id).
inline constexpr std::int32_t kMenuTextLength = 100;
inline constexpr std::int32_t kMenuTextFlags = 1;

// Passes of a re-press wait before the opening button is clicked again.
inline constexpr int kRepressWriteMail = 18000;
inline constexpr int kRepressComposeMail = 12000;
inline constexpr int kRepressToolbarMenu = 1000;

}  // namespace qc::aol
