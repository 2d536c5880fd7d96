#pragma once
// 10,000 small tagged files in a temporary folder for the tag benchmarks: 2048 bytes of audio and
// a tag block each, removed with the object.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace qc::bench {

class TagCorpus {
 public:
  static constexpr int kFiles = 10000;
  static constexpr long kAudioBytes = 2048;

  explicit TagCorpus(const std::string& name)
      : dir_(std::filesystem::temp_directory_path() / (name + "_" + std::to_string(::getpid()))) {
    std::filesystem::create_directories(dir_);
    std::string tag = "TAG";
    for (const char* field : {"A Title", "An Artist", "An Album"}) {
      std::string f = field;
      f.resize(30, ' ');
      tag += f;
    }
    tag += "1999" + std::string(30, ' ') + '\x11';
    const std::string audio(kAudioBytes, '\x55');
    for (int i = 0; i < kFiles; ++i) {
      paths_.push_back((dir_ / ("song" + std::to_string(i) + ".mp3")).string());
      std::ofstream(paths_.back(), std::ios::binary) << audio << tag;
      list_ += paths_.back() + "\n";
    }
  }
  ~TagCorpus() {
    std::error_code ec;
    std::filesystem::remove_all(dir_, ec);
  }
  TagCorpus(const TagCorpus&) = delete;
  TagCorpus& operator=(const TagCorpus&) = delete;

  const std::vector<std::string>& paths() const { return paths_; }
  // The paths one a line.
  const std::string& list() const { return list_; }

 private:
  std::filesystem::path dir_;
  std::vector<std::string> paths_;
  std::string list_;
};

}  // namespace qc::bench
