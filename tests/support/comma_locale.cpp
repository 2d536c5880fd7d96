#include "support/comma_locale.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace qc::test {
namespace {

constexpr const char* kName = "de_DE.UTF-8";

// Compiles the locale into a private folder, then moves it into place in one step so that test
// processes running side by side never see half a locale.
bool CompileLocale(const std::filesystem::path& dir) {
  namespace fs = std::filesystem;
  std::error_code ec;
  if (fs::exists(dir / kName, ec)) return true;
  fs::create_directories(dir, ec);
  const fs::path scratch = dir / ("tmp." + std::to_string(::getpid()));
  fs::create_directories(scratch, ec);
  const std::string cmd = "localedef -i de_DE -f UTF-8 '" + (scratch / kName).string() +
                          "' >/dev/null 2>&1";
  const int status = std::system(cmd.c_str());
  // localedef warns (status 1) about some locale sources and still writes the locale.
  bool ok = (status == 0 || WEXITSTATUS(status) == 1) && fs::exists(scratch / kName, ec);
  if (ok) {
    fs::rename(scratch / kName, dir / kName, ec);
    ok = fs::exists(dir / kName);
  }
  fs::remove_all(scratch, ec);
  return ok;
}

}  // namespace

CommaLocale::CommaLocale() {
  const char* now = std::setlocale(LC_ALL, nullptr);
  saved_ = now ? now : "C";
  if (!std::setlocale(LC_ALL, kName)) {
    const std::filesystem::path dir = QC_TEST_LOCALE_DIR;
    if (CompileLocale(dir)) {
      setenv("LOCPATH", dir.c_str(), 1);
      std::setlocale(LC_ALL, kName);
    }
  }
  const std::lconv* conv = std::localeconv();
  active_ = conv && std::string(conv->decimal_point) == ",";
  EXPECT_TRUE(active_) << "no comma locale: install the locales package (localedef)";
}

CommaLocale::~CommaLocale() { std::setlocale(LC_ALL, saved_.c_str()); }

}  // namespace qc::test
