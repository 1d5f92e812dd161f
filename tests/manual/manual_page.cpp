#include "manual/manual_page.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cstdlib>

#include "core/concat.h"
#include "support/temporary_folder.h"

void expectTable(std::string_view page, std::string_view name, const std::string& table) {
  const std::string path = concat(SOURCE_FOLDER "/docs/manual/", page);
  const std::string begin = concat("<!-- tabla: ", name, " -->\n");
  std::string text = readFile(path);
  const std::size_t from = text.find(begin);
  ASSERT_NE(std::string::npos, from) << name;
  const std::size_t to = text.find("<!-- fin -->", from);
  ASSERT_NE(std::string::npos, to) << name;
  const std::size_t body = from + begin.size();
  if (std::getenv("TIP2BDL_UPDATE_GOLDENS") != nullptr) {
    writeFile(path, text.replace(body, to - body, table));
    return;
  }
  EXPECT_EQ(table, text.substr(body, to - body)) << "update with scripts/update-goldens";
}

std::string code(std::string_view text) { return concat("`", text, "`"); }

std::string shortest(float value) {
  char digits[32];
  return {digits, std::to_chars(digits, digits + sizeof digits, value).ptr};
}
