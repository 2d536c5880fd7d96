#include "support/scripted_prompts.h"

namespace qc::test {

int ScriptedPrompts::MsgBox(const std::string& text, int flags, const std::string& title) {
  boxes.push_back({text, flags, title});
  if (!boxAnswers.empty()) {
    int a = boxAnswers.front();
    boxAnswers.pop_front();
    return a;
  }
  return (flags & 7) == kYesNo ? kAnswerYes : kAnswerOk;
}

std::optional<std::string> ScriptedPrompts::InputBox(const std::string& prompt,
                                                     const std::string& title,
                                                     const std::string& defaultText, int xTwips,
                                                     int yTwips) {
  inputs.push_back({prompt, title, defaultText, xTwips, yTwips});
  if (inputAnswers.empty()) return std::nullopt;
  auto a = inputAnswers.front();
  inputAnswers.pop_front();
  return a;
}

std::string ScriptedPrompts::BrowseForFolder(const std::string&) {
  if (folderAnswers.empty()) return "";
  auto a = folderAnswers.front();
  folderAnswers.pop_front();
  return a;
}

}  // namespace qc::test
