#pragma once
// The program's prompts on Qt: message boxes, input boxes at a position, and the folder chooser.
#include <optional>
#include <string>

#include "base/prompts.h"

class QWidget;

namespace qc {

// Screen positions of the prompts are given in twips; a pixel is 15 twips.
inline constexpr int kTwipsPerPixel = 15;

class QtPrompts : public Prompts {
 public:
  // Boxes are owned by `parent` when given (none: top-level boxes).
  explicit QtPrompts(QWidget* parent = nullptr) : parent_(parent) {}

  // Yes/No boxes answer kAnswerYes or kAnswerNo; others kAnswerOk. The icon follows the flags;
  // a system-modal box stays on top of every window.
  int MsgBox(const std::string& text, int flags, const std::string& title) override;
  // The box's top-left corner at (x, y) twips on the screen; nullopt when cancelled.
  std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                      const std::string& defaultText, int xTwips,
                                      int yTwips) override;
  // Folders only; the empty text when cancelled.
  std::string BrowseForFolder(const std::string& title) override;

  // The dialog being shown, for tests that answer it (nullptr when none is open).
  static QWidget* OpenDialog();

 private:
  QWidget* parent_;
};

}  // namespace qc
