#pragma once
// Modal questions: message boxes, input boxes and the folder chooser. The program asks through
// a Qt implementation; tests through one whose answers they set in advance.
#include <optional>
#include <string>

namespace qc {

// Message box flags and answers, with the platform's values.
enum MsgBoxFlags : int {
  kOkOnly = 0,
  kYesNo = 4,
  kCritical = 16,
  kQuestion = 32,
  kExclamation = 48,
  kInformation = 64,
  kSystemModal = 4096,
};
enum MsgBoxAnswer : int { kAnswerOk = 1, kAnswerCancel = 2, kAnswerYes = 6, kAnswerNo = 7 };

class Prompts {
 public:
  virtual ~Prompts() = default;
  // Returns the answer (kAnswerOk for a box with OK only).
  virtual int MsgBox(const std::string& text, int flags, const std::string& title) = 0;
  // An input box at (x, y) in twips; nullopt when cancelled.
  virtual std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                              const std::string& defaultText, int xTwips,
                                              int yTwips) = 0;
  // A folder chooser for folders only; the empty text when cancelled.
  virtual std::string BrowseForFolder(const std::string& title) = 0;
};

}  // namespace qc
