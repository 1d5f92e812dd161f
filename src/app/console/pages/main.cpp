#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "app/console/pages/bash_completion.h"
#include "app/console/pages/manual_page.h"

// write_pages FOLDER: writes man1/, es/man1/ and the completion, for the packages.

namespace {

namespace fs = std::filesystem;

void write(const fs::path& path, const std::string& text) {
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (!file) throw fs::filesystem_error("cannot be written", path, std::error_code());
}

void writePages(const fs::path& folder, Language language) {
  write(folder / "tip2bdl-cli.1", pageOfRun(language));
  write(folder / "tip2bdl.1", pageOfDesktop(language));
  for (const Work& work : works()) {
    write(folder / ("tip2bdl-cli-" + std::string(work.name) + ".1"), pageOf(work, language));
  }
}

}  // namespace

int main(int argc, char* argv[]) {
  if (argc != 2) {
    std::fputs("usage: write_pages FOLDER\n", stderr);
    return 2;
  }
  try {
    const fs::path folder = argv[1];
    writePages(folder / "man1", Language::kEnglish);
    writePages(folder / "es" / "man1", Language::kSpanish);
    write(folder / "bash-completion" / "tip2bdl-cli", bashCompletion());
  } catch (const fs::filesystem_error& fault) {
    std::fprintf(stderr, "write_pages: %s\n", fault.what());
    return 1;
  }
  return 0;
}
