#pragma once
// The help boxes: fixed texts in the program's own voice, shown through the prompts given.
// Line breaks in them are single carriage returns; there are no line feeds.
#include <string>

namespace qc {

class Prompts;

// The title a box gets when it names none: the program's own.
inline constexpr const char* kProgramTitle = "quillcast";
inline constexpr const char* kContactAddress = "brindle@quillcast.example";

std::string HowToUseText();
std::string MailListTipsText();
std::string SubjectTipsText();
std::string BodyTipsText();
std::string ContactText();

// Each blocks until the box is answered. All but the contact box: information icon, OK,
// system-modal (4160); the contact box is a plain box (0).
void ShowHowToUse(Prompts& prompts);  // how2use
void ShowMailListTips(Prompts& prompts);  // emailTips
void ShowSubjectTips(Prompts& prompts);  // subjectTips
void ShowBodyTips(Prompts& prompts);  // bodytips
void ShowContact(Prompts& prompts);  // contactzme

}  // namespace qc
