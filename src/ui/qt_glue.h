#pragma once
// Where Qt meets the Qt-free code: the pump, and the text-box and list forms of the file routines.
#include <QString>
#include <string>

#include "ui/shown_text.h"

class QWidget;

namespace qc {

class ListBox;

// DoEvents processes pending Qt events from now on, and waits idle on Qt's event loop.
void InstallQtPump();
// Blocks until Qt has handled at least one event or `seconds` have gone by.
void WaitForQtEvents(double seconds);

// The text of a QLineEdit, QPlainTextEdit or QTextEdit (plain), with line ends as CR LF as the
// logic and the files hold them; multi-line boxes show them as plain line breaks.
std::string BoxText(const QWidget* box);
void SetBoxText(QWidget* box, const std::string& text);

// Sets the box's text from the file; a missing file leaves the box as it is.
void LoadTextInto(QWidget* box, const std::string& path);
// Writes the box's text and a closing CR LF; failures are ignored.
void SaveTextFrom(const QWidget* box, const std::string& path);

// Appends the file's fields to the list, pumping events between them.
void LoadListFile(const std::string& path, ListBox& list);
// Writes every item on a line of its own; failures are ignored.
void SaveListFile(const std::string& path, const ListBox& list);

}  // namespace qc
