#pragma once
// Prompts whose answers a test queues in advance; every question asked is recorded.
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "base/prompts.h"

namespace qc::test {

struct AskedBox {
  std::string text;
  int flags;
  std::string title;
};

class ScriptedPrompts : public Prompts {
 public:
  int MsgBox(const std::string& text, int flags, const std::string& title) override;
  std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                      const std::string& defaultText, int xTwips,
                                      int yTwips) override;
  std::string BrowseForFolder(const std::string& title) override;

  // Answers are used in order; with none queued a box answers OK (or Yes for Yes/No),
  // an input box is cancelled and the folder chooser is cancelled.
  std::deque<int> boxAnswers;
  std::deque<std::optional<std::string>> inputAnswers;
  std::deque<std::string> folderAnswers;

  std::vector<AskedBox> boxes;
  struct AskedInput {
    std::string prompt, title, defaultText;
    int x, y;
  };
  std::vector<AskedInput> inputs;
};

}  // namespace qc::test
