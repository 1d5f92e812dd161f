#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "bdl/leer_bdl.h"
#include "bdl/loaded_text.h"
#include "support/recording_application.h"

// The search for commands, written again in the plainest way and compared over many small texts.

namespace {

struct Stopped {
  std::string message;
};

/// A loaded text; position 0 stands for "not found".
class PlainText {
 public:
  explicit PlainText(std::string text) : text_(std::move(text)) {}

  int count(const std::string& type) const {
    int number = 0;
    for (std::size_t p = command(type, 0); p != 0; p = command(type, p + 1)) ++number;
    return number;
  }

  /// The text of a command, or the message that the search ends with.
  std::string extract(const std::string& type, const std::string& name) const {
    try {
      if (const std::size_t p = label(type, name); p != 0) return textFrom(type, p);
      for (std::size_t p = command(type, 0); p != 0; p = command(type, p + 1)) {
        const std::string candidate = nameBefore(type, p);
        const std::size_t found = label(type, candidate);
        if (found == 0) throw Stopped{"No se encuentra: " + candidate};
        const PlainText piece(textFrom(type, found));
        std::optional<std::string> value = piece.value("LONG-NAME");
        if (!value) value = piece.value("NAME ");
        if (value == name) return piece.text_;
      }
    } catch (const Stopped& stopped) {
      return stopped.message;
    }
    return "(not found)";
  }

  std::optional<std::string> value(const std::string& keyword) const {
    const std::size_t p = find(keyword, 0);
    const std::size_t equals = p == 0 ? 0 : find("=", p + 1);
    if (equals == 0) return std::nullopt;
    const std::size_t start = text_.find_first_not_of(' ', equals + 1);
    if (start == std::string::npos) throw Stopped{keyword + ": falta el valor"};
    const bool quoted = text_[start] == '"';
    const std::size_t end = text_.find(quoted ? '"' : ' ', start + 1);
    if (quoted && end == std::string::npos) {
      throw Stopped{keyword + ": faltan las comillas de cierre del valor"};
    }
    return text_.substr(start, end == std::string::npos ? end : end + (quoted ? 1 : 0) - start);
  }

 private:
  std::size_t find(const std::string& pattern, std::size_t from) const {
    const std::size_t p = text_.find(pattern, from);
    return p == std::string::npos ? 0 : p;
  }

  /// The type word of the next command.
  std::size_t command(const std::string& type, std::size_t from) const {
    const auto isCommand = [&](std::size_t p) {
      return p >= 4 && text_[p - 1] == ' ' && text_[p - 2] == '=' && text_[p - 4] == '"';
    };
    std::size_t p = text_.find(type, from);
    while (p != std::string::npos && !isCommand(p)) p = text_.find(type, p + 1);
    return p == std::string::npos ? 0 : p;
  }

  std::string nameBefore(const std::string& type, std::size_t word) const {
    const std::size_t closing = text_.rfind('"', word);
    const std::size_t opening = closing == 0 ? std::string::npos : text_.rfind('"', closing - 1);
    if (opening == std::string::npos) {
      throw Stopped{type + ": falta el nombre entre comillas de un comando"};
    }
    return text_.substr(opening, closing + 1 - opening);
  }

  std::size_t label(const std::string& type, const std::string& name) const {
    std::size_t from = 0;
    while (true) {
      const std::size_t p = find(name, from);
      if (p == 0) return 0;
      const std::size_t equals = find("=", p);
      const std::size_t end = p + name.size();
      if (equals >= end && equals - end < 3) {
        const std::size_t word = find(type, equals);
        if (word != 0 && word - equals <= 3) return p;
        from = equals;
      } else {
        from = p + 1;
      }
    }
  }

  std::string upToDots(const std::string& what, std::size_t start, std::size_t from) const {
    const std::size_t end = find("..", from);
    if (end == 0) throw Stopped{what + ": falta el cierre \"..\""};
    return text_.substr(start, end - start);
  }

  std::string textFrom(const std::string& type, std::size_t p) const {
    const std::string header = "SET-DEFAULT FOR " + type;
    const std::string start = text_.substr(p, find(type, p) + type.size() - p);
    const std::string own = upToDots(start, p, p + 1);
    const std::size_t defaults = find(header, 0);
    return defaults == 0 ? own : own + upToDots(header, defaults, defaults);
  }

  std::string text_;
};

/// What `ask` returns, or the message that it ends with, without the file.
std::string answer(const std::function<std::string()>& ask) {
  std::string text;
  const std::string message = stopMessage([&] { text = ask(); });
  if (message == kNotStopped) return text;
  const std::string prefix = LoadedText::message("");
  return message.starts_with(prefix) ? message.substr(prefix.size()) : message;
}

std::string extracted(LeerBDL& model, const std::string& type, const std::string& name) {
  return answer([&] { return textOf(LeerBDL(model, type, name)); });
}

const std::string kAbsent = "(absent)";

std::string valueIn(LeerBDL& model, const std::string& type, const std::string& name,
                    const std::string& keyword) {
  return answer([&] {
    std::string value;
    const bool present = LeerBDL(model, type, name).leerCadena(keyword, value) == 0;
    return present ? value : kAbsent;
  });
}

std::string plainValue(const std::string& command, const std::string& keyword) {
  try {
    return PlainText(command).value(keyword).value_or(kAbsent);
  } catch (const Stopped& stopped) {
    return stopped.message;
  }
}

const std::string kNoEnd = "falta el cierre \"..\"";
const std::vector<std::string> kNames = {"\"A\"", "\"B\"", "\"A B\"", "A", "\"A=\"", "\"C\"", "="};

/// Compares both searches over texts put together from `pieces`; returns how many commands the
/// plain one found.
int compareOver(const std::vector<std::string>& pieces, std::size_t longest) {
  std::mt19937 random(20240607);
  int found = 0;
  for (int round = 0; round < 600 && !testing::Test::HasFailure(); ++round) {
    std::string bytes = random() % 8 == 0 ? "" : "\n";
    for (std::size_t left = random() % longest; left > 0; --left) {
      bytes += pieces[random() % pieces.size()];
    }
    LoadedText file(bytes);
    LeerBDL& model = file.model;
    const PlainText plain(textOf(model));
    SCOPED_TRACE(testing::PrintToString(bytes));
    for (const char* type : {"WALL", "WALLS"}) {
      EXPECT_EQ(plain.count(type), model.contarComandos(type));
      for (const std::string& name : kNames) {
        const std::string expected = plain.extract(type, name);
        EXPECT_EQ(expected, extracted(model, type, name)) << type << " " << name;
        if (expected.find(" = WALL") == std::string::npos) continue;
        ++found;
        // Commands that end at the same ".." share their text, so each has been searched before.
        if (!expected.ends_with(kNoEnd)) {
          EXPECT_EQ(plainValue(expected, "NAME "), valueIn(model, type, name, "NAME ")) << name;
        }
      }
    }
  }
  return found;
}

}  // namespace

TEST(LeerBDLRandomTexts, LabelsAreFoundAsInThePlainestSearch) {
  EXPECT_GT(compareOver({"\"A\"",
                         "\"B\"",
                         "\"A B\"",
                         "\"A=\"",
                         "\"",
                         "A",
                         "=",
                         " = ",
                         " =",
                         "\t",
                         "\n",
                         "\r\n",
                         " ",
                         "WALL",
                         "WALLS",
                         "..",
                         "..",
                         ".",
                         "x",
                         "SET-DEFAULT FOR WALL",
                         "\"A\" = WALL",
                         "\"B\" = WALL",
                         "\"A\" = WALLS"},
                        16),
            200)
      << "the texts must hold commands to find";
}

TEST(LeerBDLRandomTexts, LongNamesAreFoundAsInThePlainestSearch) {
  EXPECT_GT(compareOver({"\n\"M1\" = WALL ", "\n\"M2\" = WALL ", "\n\"M3\" = WALLS ", " .. ",
                         " .. ", "LONG-NAME = \"A\" ", "LONG-NAME = \"B\" ", "NAME = \"A\" ",
                         "NAME = A ", "NAME = \"C\" ", "NAME ", "NAME= \"A\"",
                         "\nSET-DEFAULT FOR WALL ", "\nSET-DEFAULT FOR WALLS ", "\"", "X = 1 "},
                        20),
            200)
      << "the texts must hold commands to find";
}
