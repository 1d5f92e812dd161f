#include "check/codes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

#include "support/temporary_folder.h"

// Every message of docs/mensajes.md has a code of its own kind in a check.

namespace {

constexpr auto kDocument = SOURCE_FOLDER "/docs/mensajes.md";

/// A message as the document writes it, in UTF-8: what changes from run to run stands between ‹
/// and ›.
struct Documented {
  std::string message;
  long line;
};

/// Those of the tables that have a column "mensaje".
std::vector<Documented> documentedMessages() {
  static const std::regex kMessage(R"(\| `([^`]*)` \|$)");
  std::vector<Documented> messages;
  bool inTable = false;
  long number = 0;
  for (const std::string& line : linesOf(readFile(kDocument))) {
    ++number;
    if (line.ends_with("| mensaje |")) {
      inTable = true;
    } else if (!line.starts_with("|")) {
      inTable = false;
    } else if (inTable && !line.starts_with("|---")) {
      std::smatch message;
      EXPECT_TRUE(std::regex_search(line, message, kMessage)) << kDocument << ":" << number;
      messages.push_back({message[1], number});
    }
  }
  return messages;
}

/// With something in the place of what changes.
std::string filled(const std::string& message) {
  static const std::regex kPlaceholder("‹.*?›");
  return toCp1252(std::regex_replace(message, kPlaceholder, "X"));
}

// Why a message needs no code of its own.
constexpr auto kNoRun = "there is no run: the program answers with its usage, or a form stays open";
constexpr auto kWriting = "of what a run writes: a check writes nothing";
constexpr auto kMachine = "the machine's fault, not that of an input";
constexpr auto kMisuse = "a defect of the program: no input provokes it";

struct Other {
  std::string_view message;
  std::string_view reason;
};

/// The messages that are "otro-error", in order.
constexpr Other kOthers[] = {
    {"El fichero debe ser de tipo escritura", kMisuse},
    {"El fichero debe ser de tipo lectura", kMisuse},
    {"Error al abrir fichero de escritura: ‹ruta›", kWriting},
    {"Error al escribir en la salida estándar", kWriting},
    {"Error al escribir fichero: ‹ruta›", kWriting},
    {"Error en el fichero defectos.inp: Error leyendo NO-HABITABLES", kMisuse},
    {"Error en el fichero ‹ruta›: ‹comando›: no hay más comandos de este tipo", kMisuse},
    {"Error en el uso de la clase fichero. El tipo debe ser escritura o lectura", kMisuse},
    {"Error inesperado: el programa se ha interrumpido (‹señal›)", kMachine},
    {"Error inesperado: excepción de tipo desconocido", kMachine},
    {"Error inesperado: ‹descripción›", kMachine},
    {"No ha introducido algunos de los ficheros.", kNoRun},
    {"No hay memoria suficiente", kMachine},
    {"Se ha perdido la conexión con la pantalla", kMachine},
    {"tip2bdl-cli: opción desconocida: ‹opción›", kNoRun},
    {"tip2bdl-cli: se esperaban cuatro rutas y se ha dado 1", kNoRun},
    {"tip2bdl-cli: se esperaban cuatro rutas y se ha dado 1; ¿quería decir ‹trabajo›?", kNoRun},
    {"tip2bdl-cli: se esperaban cuatro rutas y se han dado ‹n›", kNoRun},
    {"tip2bdl-cli: se esperaban cuatro rutas y se han dado ‹n›; ¿quería decir ‹trabajo›?", kNoRun},
};
static_assert(std::ranges::is_sorted(kOthers, {}, &Other::message));

const Other* findOther(std::string_view message) {
  const auto* other = std::ranges::find(kOthers, message, &Other::message);
  return other == std::end(kOthers) ? nullptr : other;
}

}  // namespace

TEST(CodeOfRunMessage, EveryMessageOfTheDocumentHasItsCode) {
  const auto messages = documentedMessages();
  ASSERT_LE(90U, messages.size()) << kDocument << " is not read as it should be";
  for (const auto& [message, line] : messages) {
    const std::string_view code = rowOf(codeOfRunMessage(filled(message))).word;
    const Other* other = findOther(message);
    if (other == nullptr) {
      EXPECT_NE("otro-error", code) << kDocument << ":" << line << ": \"" << message
                                    << "\" is in no row of kRunMessages, in check/codes.cpp";
    } else {
      EXPECT_EQ("otro-error", code)
          << "\"" << message
          << "\" has a code: take it out of kOthers, where it stands because of \"" << other->reason
          << "\"";
    }
  }
}

TEST(CodeOfRunMessage, TheOtherErrorsAreMessagesOfTheDocument) {
  const auto messages = documentedMessages();
  for (const Other& other : kOthers) {
    EXPECT_EQ(1, std::ranges::count(messages, other.message, &Documented::message))
        << "in kOthers, but not once in " << kDocument << ": " << other.message;
  }
}
