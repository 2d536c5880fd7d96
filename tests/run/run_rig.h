#pragma once
// A main window and its option menu in the sandbox, every option off, the handle and comment set,
// and helpers that choose files (with a tag block when fields are given).
#include <cstdint>
#include <string>
#include <vector>

#include "codec/id3v1.h"
#include "run/stats.h"
#include "support/sandbox.h"
#include "text/text_files.h"
#include "ui/frmmain.h"
#include "ui/frmmenu.h"
#include "ui/settings_store.h"

namespace qc::test {

struct TagFields {
  std::string title, artist, album, year, comment, genre;
};
inline const TagFields kTag{"Song", "Band", "Record", "1998", "old comment", "Blues"};

class RunRig : public SandboxTest {
 protected:
  RunRig() {
    for (const char* item : kOptionItems) menu.setCheck(item, false);
    menu.lblHandle->SetCaption("brindle");
    menu.lblRename->SetCaption("renamed comment");
    ConnectStats(frm, menu, services);
  }

  std::string Choose(const std::string& name, std::int64_t bytes, const std::string& subject,
                     const TagFields* tag = &kTag) {
    const std::string path = dir / name;
    WriteSized(path, bytes);
    if (tag) {
      WriteId3Tag(path, tag->title, tag->artist, tag->album, tag->year, tag->comment,
                  tag->genre);
    }
    frm.lstUp->AddItem(name);
    frm.lstPathSelect->AddItem(path);
    frm.lstSubj->AddItem(subject);
    return path;
  }
  void WriteBody(const std::string& text) { SaveTextFile(app + "txtBody.sys", text); }

  FrmMain frm;
  FrmMenu menu;
};

}  // namespace qc::test
