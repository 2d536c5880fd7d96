#pragma once
#include <string>

namespace qc {

// The program's folder, without a trailing separator: where lstMember.sys and lstUpload.sys lie
// (joined with a separator) and beside which the body file lies (AppPath() + "txtBody.sys",
// joined bare). It is $QUILLCAST_HOME when that is set and not empty (made absolute and
// cleaned), else the per-user data folder <data>/quillcast (~/.local/share/quillcast).
// The folder is created when missing.
std::string AppPath();

// The list files in the program's folder, and the body file beside it (joined bare on purpose).
std::string MemberListPath();
std::string UploadListPath();
std::string BodyTemplatePath();

}  // namespace qc
