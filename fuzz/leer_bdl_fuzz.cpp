// Any text, asked for any keyword, type and name: the first three lines of an input are a keyword,
// a type and a name (its quotes included); the rest is the text.
#include "bdl/leer_bdl.h"

#include <algorithm>
#include <array>
#include <optional>

#include "core/report_error.h"
#include "core/source_text.h"
#include "fuzz_support.h"

namespace {

constexpr std::size_t kNotFound = 0;

struct Question {
  std::string keyword;
  std::string type;
  std::string name;
};

std::string takeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  std::string line(text.substr(0, end));
  text.remove_prefix(std::min(end + 1, text.size()));
  return line;
}

/// The label of a command, looked for in the plainest way.
std::size_t plainLabel(const LeerBDL& model, const std::string& type, const std::string& name) {
  const std::string_view text = *model.obtenerTexto();
  if (text.starts_with(name)) return kNotFound;
  for (std::size_t p = text.find(name); p != std::string::npos; p = text.find(name, p + 1)) {
    const std::size_t end = p + name.size();
    const std::size_t equals = text.find('=', p);
    if (equals < end || equals > end + 2) continue;
    const std::size_t word = text.find(type, equals);
    if (word <= equals + 3) return p;
  }
  return kNotFound;
}

/// The text of the command whose label stands at `label`.
std::string plainCommand(const LeerBDL& model, const std::string& type, std::size_t label) {
  const std::string_view text = *model.obtenerTexto();
  std::string command(text.substr(label, text.find("..", label + 1) - label));
  const std::size_t defaults = text.find("SET-DEFAULT FOR " + type);
  if (defaults != std::string::npos && defaults != 0) {
    command += text.substr(defaults, text.find("..", defaults) - defaults);
  }
  return command;
}

/// The label of the first command with that LONG-NAME or NAME; empty when there is none.
std::string plainLongName(LeerBDL& model, const std::string& type, const std::string& name) {
  model.rebobinar();
  for (int left = model.contarComandos(type); left > 0; --left) {
    std::string candidate = model.siguienteComando(type);
    if (plainLabel(model, type, candidate) == kNotFound) {
      ReportFailure(ErrorLog, "No se encuentra: " + candidate);
    }
    LeerBDL command(model, type, candidate);  // found by its label: the cursor stays
    std::string value;
    const bool read =
        command.leerCadena("LONG-NAME", value) == 0 || command.leerCadena("NAME ", value) == 0;
    if (read && value == name) return candidate;
  }
  return {};
}

void askGetters(LeerBDL& model, std::string_view keyword) {
  endingOf([&] {
    constexpr int kPreset = -77;
    int integer = kPreset;
    if (model.leerEntero(keyword, integer) == -1) expect(integer == kPreset, "absent, yet set");
  });
  endingOf([&] {
    float real = 0.5F;
    if (model.leerReal(keyword, real) == -1) expect(real == 0.5F, "absent, yet set");
  });
  endingOf([&] {
    std::string value = "preset";
    if (model.leerCadena(keyword, value) == -1) {
      expect(value == "preset", "absent, yet set");
    } else {
      expect(!value.empty() && value.size() < LeerBDL::kLargoValor, "a value beyond its limits");
    }
  });
  endingOf([&] {
    std::array<float, 4> reals{};
    const int count = model.leerListaReales(keyword, reals);
    expect(count == -1 || (count >= 1 && count <= 4), "a wrong number of reals");
  });
  endingOf([&] {
    std::vector<std::string> names;
    const int count = model.leerListaCadenas(keyword, names, 10, 50);
    expect(count == -1 ? names.empty() : static_cast<std::size_t>(count) == names.size(),
           "a wrong number of names");
    for (const std::string& name : names) {
      expect(name.size() >= 2 && name.size() < 50 && name.front() == '"' && name.back() == '"',
             "a name beyond its limits");
    }
  });
}

/// Whether the file has, at `span`, the characters `value` of the model's text, whatever the blanks
/// and line ends.
bool standsAt(Span span, std::string_view value, const SourceText& source) {
  std::string found(source.bytes().substr(span.begin, span.end - span.begin));
  std::string expected(value);
  for (std::string* text : {&found, &expected}) {
    std::erase_if(*text, [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; });
  }
  return found == expected;
}

/// Where a keyword and its value stand is what is read there, unless the text is put together from
/// two pieces, the border of which may run through either.
void askPlaces(LeerBDL& model, std::string_view keyword, bool onePiece) {
  const SourceText& source = model.fuente();
  const std::optional<Span> key = model.lugarDe(keyword);
  expect(key.has_value() == (model.buscar(keyword, 0) != kNotFound), "a place of nothing");
  if (key) {
    expect(!onePiece || standsAt(*key, keyword, source), "the place of another keyword");
    expectWithin(source.placeOf(*key), source);
  }
  const std::optional<Span> value = model.lugarDeValor(keyword);
  float real = 0;
  expect(value.has_value() == (model.leerReal(keyword, real) != -1), "a place of no value");
  if (!value) return;
  expectWithin(source.placeOf(*value), source);
  // For a value that is missing a getter takes what comes next.
  const bool missing = standsAt(*value, "=", source) || value->begin < key->end;
  if (!onePiece || missing) return;
  endingOf([&] {
    std::string text;
    if (model.leerCadena(keyword, text) == -1) return;
    // A CR is a value of its own, but a place shows what a person sees; and of a list the whole.
    if (text.starts_with('\r') || text.starts_with('(')) return;
    expect(standsAt(*value, text, source), "the place of another value");
  });
}

void askCommand(LeerBDL& model, const std::string& type, const std::string& name) {
  std::size_t label = plainLabel(model, type, name);
  std::string expected;
  // The search for the long name first, since it may end the run.
  const Ending plain = endingOf([&] {
    std::string labelName = name;
    if (label == kNotFound) {
      labelName = plainLongName(model, type, name);
      if (!labelName.empty()) label = plainLabel(model, type, labelName);
    }
  });
  const Ending ending = endingOf([&] {
    LeerBDL command(model, type, name);
    const auto text = command.obtenerTexto();
    expect(text.has_value() == (label != kNotFound), "a command found, or not, wrongly");
    if (!text) return;
    expect(*text == plainCommand(model, type, label), "another command text");
    askGetters(command, "LONG-NAME");
    askPlaces(command, "LONG-NAME", false);
  });
  if (plain.stopped) expect(ending.stopped && ending.message == plain.message, "another message");
}

void askBlock(LeerBDL& model, const std::string& keyword) {
  endingOf([&] {
    bool found = false;
    LeerBDL block(model, keyword, found);
    expect(found == block.obtenerTexto().has_value(), "found without text, or not found with");
    if (!found) return;
    // A keyword may itself hold the "..", or its first point.
    const std::string_view text = *model.obtenerTexto();
    const std::size_t start = text.find(keyword);
    const std::string_view expected = text.substr(start, text.find("..", start) - start);
    expect(*block.obtenerTexto() == expected, "another block");
    askPlaces(block, keyword, true);
  });
}

void askEverything(LeerBDL& model, const Question& question) {
  askGetters(model, question.keyword);
  askPlaces(model, question.keyword, true);
  askBlock(model, question.keyword);
  askCommand(model, question.type, question.name);

  std::vector<std::string> names;
  endingOf([&] {
    model.rebobinar();
    for (int left = std::min(model.contarComandos(question.type), 20); left > 0; --left) {
      names.push_back(model.siguienteComando(question.type));
      expect(names.back().size() >= 2, "a name without quotes");
    }
  });
  for (const std::string& name : names) askCommand(model, question.type, name);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view input = textOf(data, size);
  const Question question{takeLine(input), takeLine(input), takeLine(input)};
  if (!isText(input)) return 0;
  const SourceText source("modelo", input);
  LeerBDL model(source);
  const std::string_view text = *model.obtenerTexto();
  expect(text.find_first_of("\n\t") == std::string::npos, "a line end or a tab is left");
  askEverything(model, question);
  return 0;
}
