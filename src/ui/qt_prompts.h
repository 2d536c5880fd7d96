#pragma once
// The program's prompts on Qt: message boxes, input boxes at a position, and the folder chooser.
#include <optional>
#include <string>

#include "base/prompts.h"
#include "ui/window_routines.h"

class QWidget;

namespace qc {

// Screen positions of the prompts are given in twips (kTwipsPerPixel a pixel).

// Every prompt is owned by the window the user is working in, or else by the given owner (the
// main window), and stands in front of all windows while it runs. Carriage returns in texts
// are line breaks.
class QtPrompts : public Prompts {
 public:
  explicit QtPrompts(QWidget* owner = nullptr) : owner_(owner) {}
  void SetOwner(QWidget* owner) { owner_ = owner; }
  // The window a prompt asked now would belong to.
  QWidget* Owner() const;

  // Yes/No boxes answer kAnswerYes or kAnswerNo; others kAnswerOk. The icon follows the flags.
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
  QWidget* owner_;
};

}  // namespace qc
