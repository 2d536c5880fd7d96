#include "shell/help.h"

#include <initializer_list>

#include "base/prompts.h"

namespace qc {
namespace {

constexpr int kHelpBox = kInformation | kSystemModal;

std::string Joined(std::initializer_list<const char*> lines, const char* between) {
  std::string out;
  bool first = true;
  for (const char* line : lines) {
    if (!first) out += between;
    out += line;
    first = false;
  }
  return out;
}

}  // namespace

std::string HowToUseText() {
  return Joined(
      {"1. setup your 'mail list', 'subject lines' and 'body'.",
       "2. click on 'add folder' to select your folder with all your mp3s. 'list' shows the "
       "contents in the folder and 'selected' shows the files that you've selected to be "
       "taged/uploaded.",
       "3. click on 'info mode' to view and edit the files you've selected.",
       "4. you can scroll up/down to see all the files. if you want to edit the subject line, "
       "change it to what you want and press 'enter'.",
       "5. just hit the 'start tagging' circle.",
       "to review this, just simply go to the 'file menu' triangle and 'how to use...'."},
      "\r\r");
}

std::string MailListTipsText() {
  return Joined({"mail listing tips:",
                 "",
                 " - to add more than 1 person at a time,",
                 "   seperate the names with comas or",
                 "   parenthesis. example:",
                 "      email, email2, email3",
                 "      or",
                 "      (email)(email2)(email3)",
                 "",
                 " - to check if mailboxes arent full, go",
                 "   to 'options' >> 'check and remove",
                 "   full boxes'",
                 "",
                 " - to remove more than 1 name, select",
                 "   by holding SHIFT or CONTROL"},
                "\r");
}

std::string SubjectTipsText() {
  return Joined({"editing subject lines with 'quill cast'",
                 "is simple. when the email is being",
                 "taged, quill cast will extract information",
                 "from the file. the information will be re-",
                 "placed with certain keys. they keys are:",
                 "   fileName$",
                 "   fileSize$",
                 "   idTitle$",
                 "   idArtist$",
                 "   idAlbum$",
                 "   idGenre$",
                 "example: ur subject line is:",
                 "[my group - idArtist$ - idTitle$]",
                 "and the file you are tagging is 'miracles'",
                 "by 'ilona'. it will fix the subject to:",
                 "[my group - ilona - miracles]"},
                "\r");
}

std::string BodyTipsText() {
  return "in your tag, in the file info, set these keys in. when the program is tagging the "
         "email, it will replace it with the real name. like idTitle$ will be replaced with "
         "'miracles' and idArtist$ will be replaced with 'ilona'";
}

std::string ContactText() {
  return std::string("my email address it ") + kContactAddress +
         ". feel free to email me. please do not ask about programing, help, or teaching. all "
         "emails with this content will be deleted and not replyed to.";
}

void ShowHowToUse(Prompts& prompts) { prompts.MsgBox(HowToUseText(), kHelpBox, "how to use..."); }
void ShowMailListTips(Prompts& prompts) { prompts.MsgBox(MailListTipsText(), kHelpBox, "tips!"); }
void ShowSubjectTips(Prompts& prompts) { prompts.MsgBox(SubjectTipsText(), kHelpBox, "tips"); }
void ShowBodyTips(Prompts& prompts) { prompts.MsgBox(BodyTipsText(), kHelpBox, "tips"); }
void ShowContact(Prompts& prompts) { prompts.MsgBox(ContactText(), kOkOnly, kProgramTitle); }

}  // namespace qc
