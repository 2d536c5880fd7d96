#include "support/files.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <system_error>

#include "base/failure.h"

namespace qc::test {

namespace fs = std::filesystem;

TempDir::TempDir() {
  std::string pattern = (fs::temp_directory_path() / "qc_test_XXXXXX").string();
  path_ = ::mkdtemp(pattern.data());
}

TempDir::~TempDir() {
  std::error_code ec;
  // Tests make files read-only; give the rights back so that everything goes.
  for (auto& e : fs::recursive_directory_iterator(path_, ec))
    fs::permissions(e.path(), fs::perms::owner_all, fs::perm_options::add, ec);
  fs::remove_all(path_, ec);
}

std::string ReadBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void WriteBytes(const std::string& path, const std::string& bytes) {
  fs::create_directories(fs::path(path).parent_path());
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

void WriteSized(const std::string& path, std::int64_t bytes) {
  WriteBytes(path, "");
  fs::resize_file(path, static_cast<std::uintmax_t>(bytes));
}

std::string TagBytes(const std::string& title, const std::string& artist,
                     const std::string& album, const std::string& year,
                     const std::string& comment, unsigned char genre, char pad) {
  auto field = [pad](std::string s, std::size_t w) {
    s.resize(w, pad);
    return s;
  };
  return "TAG" + field(title, 30) + field(artist, 30) + field(album, 30) + field(year, 4) +
         field(comment, 30) + std::string(1, static_cast<char>(genre));
}

int FailureNumberOf(const std::function<void()>& f) {
  try {
    f();
  } catch (const RuntimeFailure& e) {
    return e.number();
  }
  return 0;
}

std::vector<TableRow> ReadTable(const std::string& path) {
  std::ifstream in(path);
  std::vector<TableRow> rows;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line[0] == '#') continue;
    TableRow row;
    if (const auto bar = line.find(" |"); bar != std::string::npos) {
      row.text = line.substr(bar + 2);
      line.resize(bar);
    }
    std::istringstream words(line);
    for (std::string w; words >> w;) row.words.push_back(w);
    rows.push_back(row);
  }
  return rows;
}

std::string TempDir::Make(const std::string& name, const std::string& bytes) const {
  WriteBytes(*this / name, bytes);
  return *this / name;
}

}  // namespace qc::test
