#include "client/window_system.h"

#include "base/cp1252.h"

namespace qc {

LParam LParam::Word(std::int32_t& word) {
  LParam p;
  p.kind_ = Kind::kWord;
  p.word_ = &word;
  return p;
}

LParam LParam::Text(std::string text) {
  LParam p;
  p.kind_ = Kind::kText;
  p.text_ = std::move(text);
  return p;
}

LParam LParam::Buffer(std::string& buffer) {
  LParam p;
  p.kind_ = Kind::kBuffer;
  p.buffer_ = &buffer;
  return p;
}

std::string LParam::Describe() const {
  switch (kind_) {
    case Kind::kZero: return "0";
    case Kind::kWord: return "&" + std::to_string(*word_);
    case Kind::kText: return "\"" + text_ + "\"";
    case Kind::kBuffer: return "buf[" + std::to_string(buffer_->size()) + "]";
  }
  return "?";
}

// Bytes that are not UTF-8 come from file names of another encoding: they pass as they are.
std::string ToCodePage(std::string_view programText) { return Utf8ToCp1252(programText, true); }
std::string FromCodePage(std::string_view codePageText) { return Cp1252ToUtf8(codePageText); }

}  // namespace qc
