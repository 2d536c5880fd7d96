// The catalogue as a person works it, one scenario a file in scenarios/: files made in a folder,
// the folder chosen, entries selected, added, removed, refreshed, stepped through in info mode,
// and what the lists, labels and subject box show in between.
//
// What the user does by a click or a menu item goes through that control or item, as bound.
//
// File format, one statement a line, "#" starts a comment; texts in quotes (\r \n \" \xNN):
//   file NAME [BYTES] [TAIL]   a file of BYTES bytes (1000) in the folder; TAIL: untagged (the
//                              default), tag TITLE [ARTIST ALBUM YEAR COMMENT GENRE-NUMBER] [nul]
//                              (nul: fields padded with NULs), or raw TEXT for the last bytes
//   folder NAME                a folder inside the folder
//   template TEXT              the subject template
//   choose [SUFFIX] | cancel   the folder chooser answers the folder (SUFFIX appended) or nothing
//   select ROW... | select-up ROW...   rows of the folder list or of the selection, selected
//   cursor ROW | cursor-up ROW         the list's cursor row
//   add | add-current | remove | remove-current | refresh | clear yes|no
//   info | next | previous | select-mode | type TEXT | backspace | set TEXT | enter | keypad-enter
//   click CONTROL              a click on one of the main window's picture buttons or labels
//   menu ITEM                  an item of the folder lists' popup menu
//   gone NAME | retag NAME TITLE ARTIST
//   show WHAT...               writes down: mp3 paths up selected subjects labels box index
//                              panels folder selcount viewed boxes editor (the tag editor's
//                              boxes and the path it and the main window hold)
//   block NAME                 writes down the file's tag block: its text, then the genre byte
//   WINDOW.CONTROL ACTION... | look CONTROL... | clipboard set TEXT
//                              the controls of the windows on screen (ui/control_steps.h)
//   > LINE                     what the show before it must have written, line for line
// A run-time failure of a statement is written down as "failure N".
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "catalogue/frm_idedit.h"
#include "catalogue/info_mode.h"
#include "catalogue_fixture.h"
#include "support/qt_events.h"
#include "support/script_words.h"
#include "ui/control_steps.h"
#include "ui/window_routines.h"

namespace qc::test {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

fs::path ScenarioDir() { return fs::path(QC_TEST_DATA_DIR).parent_path() / "scenarios"; }

class CatalogueScenario : public CatalogueTest, public ::testing::WithParamInterface<std::string> {
 protected:
  // A path inside the folder as "/NAME".
  std::string Inside(const std::string& path) const {
    return path.rfind(folder_, 0) == 0 ? path.substr(folder_.size()) : path;
  }
  std::string Items(const ListBox& list, bool names = false) const {
    std::string out;
    for (const std::string& item : list.Items()) out += " " + Quoted(names ? Inside(item) : item);
    return out;
  }

  void Show(const std::string& what) {
    auto top = [](const QWidget* w) {
      const double t = TwipsTop(w);
      return t == kPanelShownTop ? std::string("shown") : t == kPanelHiddenTop ? "hidden" : "moved";
    };
    if (what == "mp3") out_.push_back("mp3" + Items(*main.lstMp3));
    if (what == "paths") out_.push_back("paths" + Items(*main.lstPaths, true));
    if (what == "up") out_.push_back("up" + Items(*main.lstUp));
    if (what == "selected") out_.push_back("selected" + Items(*main.lstPathSelect, true));
    if (what == "subjects") out_.push_back("subjects" + Items(*main.lstSubj));
    if (what == "labels") {
      std::string line = "labels";
      for (const Label* l : {main.lblTitle, main.lblArtist, main.lblAlbum, main.lblGenre,
                             main.lblYear, main.lblMb})
        line += " " + Quoted(l->Caption());
      out_.push_back(line);
    }
    if (what == "box") {
      char colour[16];
      std::snprintf(colour, sizeof colour, "%06X", main.txtSubj->BackColor());
      out_.push_back("box " + Quoted(main.txtSubj->Text()) + " " + colour);
    }
    if (what == "index") out_.push_back("index " + Quoted(main.lblIndex->Caption()));
    if (what == "panels") out_.push_back("select " + top(main.pnlSelect) + ", info " + top(main.pnlInfo));
    if (what == "folder") {
      std::string tag = main.lblSetfolder->Tag.toStdString();
      if (tag.rfind(folder_, 0) == 0) tag = "+" + tag.substr(folder_.size());
      out_.push_back("folder " + Quoted(tag));
    }
    if (what == "viewed") out_.push_back("viewed " + Quoted(main.lstPathSelect->Tag.toStdString()));
    if (what == "selcount") out_.push_back("selcount " + std::to_string(main.lstMp3->SelCount()));
    if (what == "editor") {
      std::string line = "editor";
      for (const char* box :
           {"txtTitle", "txtArtist", "txtAlbum", "txtYear", "cmbGenre", "txtComment"})
        line += " " + Look(std::string("frmIDedit.") + box);
      out_.push_back(line + " path " + Quoted(Inside(TagEditor()->lblPath->Caption())) + " " +
                     Quoted(Inside(main.lblPath->Caption())));
    }
    if (what == "boxes") {
      for (const AskedBox& b : prompts.boxes)
        out_.push_back("asked " + std::to_string(b.flags) + " " + Quoted(b.title) + " " + Quoted(b.text));
    }
  }

  void File(const Words& w) {
    std::size_t i = 2;
    std::size_t size = 1000;
    if (i < w.size() && std::isdigit(static_cast<unsigned char>(w[i][0]))) size = std::stoul(w[i++]);
    std::string tail;
    if (i < w.size() && w[i] == "raw") tail = w.at(i + 1);
    if (i < w.size() && w[i] == "tag") {
      Words f(w.begin() + static_cast<long>(i) + 1, w.end());
      const char pad = !f.empty() && f.back() == "nul" ? '\0' : ' ';
      if (pad == '\0') f.pop_back();
      f.resize(6);
      tail = TagBytes(f[0], f[1], f[2], f[3], f[4],
                      static_cast<unsigned char>(f[5].empty() ? 0 : std::stoi(f[5])), pad);
    }
    Mp3(w.at(1), tail, size);
  }

  void Do(const Words& w) {
    const std::string& op = w.at(0);
    auto row = [&w](std::size_t i) { return std::stoi(w.at(i)); };
    if (op == "file") File(w);
    if (op == "folder") fs::create_directories(folder_ + kSep + w.at(1));
    if (op == "template") SetTemplate(w.at(1));
    if (op == "choose" || op == "cancel") {
      prompts.folderAnswers.push_back(op == "cancel" ? "" : folder_ + (w.size() > 1 ? w[1] : ""));
      emit main.lblSetfolder->clicked();
    }
    if (op == "select") for (std::size_t i = 1; i < w.size(); ++i) main.lstMp3->SetSelected(row(i), true);
    if (op == "select-up") for (std::size_t i = 1; i < w.size(); ++i) main.lstUp->SetSelected(row(i), true);
    if (op == "cursor") main.lstMp3->SetListIndex(row(1));
    if (op == "cursor-up") main.lstUp->SetListIndex(row(1));
    if (op == "add") emit main.lbl_Add->clicked();
    if (op == "add-current") emit menu2.addmp3->triggered();
    if (op == "remove") emit main.lblRemove->clicked();
    if (op == "remove-current") emit menu2.rmvmp33->triggered();
    if (op == "refresh") emit main.lbl_refresh->clicked();
    if (op == "clear") {
      prompts.boxAnswers.push_back(w.at(1) == "yes" ? kAnswerYes : kAnswerNo);
      emit main.lbl_Clr->clicked();
    }
    if (op == "info") emit main.picInfo->clicked();
    if (op == "next") emit main.picDown->clicked();
    if (op == "previous") emit main.picUp->clicked();
    if (op == "select-mode") emit main.picSelect->clicked();
    if (op == "type") test::Type(main.txtSubj, QString::fromStdString(w.at(1)));
    if (op == "backspace") main.txtSubj->backspace();
    if (op == "set") main.txtSubj->setText(QString::fromStdString(w.at(1)));
    if (op == "enter") Key(main.txtSubj, Qt::Key_Return, QStringLiteral("\r"));
    if (op == "keypad-enter") Key(main.txtSubj, Qt::Key_Enter);  // by its key, without a text
    if (op == "menu") {  // by the signal: a failure unwinding through trigger() leaks its guard
      QAction* item = menu2.findChild<QAction*>(QString::fromStdString(w.at(1)));
      ASSERT_NE(item, nullptr) << w[1];
      emit item->triggered();
    }
    if (op == "block") {
      const std::string bytes = ReadBytes(folder_ + kSep + w.at(1));
      out_.push_back("block " + Quoted(bytes.substr(bytes.size() - 128, 127)) + " " +
                     std::to_string(static_cast<unsigned char>(bytes.back())));
    }
    if (IsControlStep(op)) ControlStep(w, out_);
    if (op == "gone") fs::remove(folder_ + kSep + w.at(1));
    if (op == "retag") WriteId3Tag(folder_ + kSep + w.at(1), w.at(2), w.at(3), "", "", "", "");
    if (op == "click") {
      Label* control = main.findChild<Label*>(QString::fromStdString(w.at(1)));
      ASSERT_NE(control, nullptr) << w[1];
      emit control->clicked();
    }
    if (op == "show") for (std::size_t i = 1; i < w.size(); ++i) Show(w[i]);
  }
  std::vector<std::string> out_;
};

TEST_P(CatalogueScenario, ShowsWhatTheFileExpects) {
  std::ifstream in(ScenarioDir() / (GetParam() + ".txt"), std::ios::binary);
  std::vector<std::string> expected;
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("> ", 0) == 0) expected.push_back(line.substr(2));
    if (line.empty() || line[0] == '#' || line[0] == '>') continue;
    const int failure = FailureNumberOf([&] { Do(ScriptWords(line)); });
    if (failure) out_.push_back("failure " + std::to_string(failure));
  }
  UnloadSecondaryWindows();
  std::string shown;
  for (const std::string& line : out_) shown += "> " + line + "\n";
  EXPECT_EQ(out_, expected) << "written down:\n" << shown;
}

INSTANTIATE_TEST_SUITE_P(Scenarios, CatalogueScenario, 
                         ::testing::ValuesIn(ScenarioNames(ScenarioDir())),
                         [](const auto& info) { return TestName(info.param); });

}  // namespace
}  // namespace qc::test
