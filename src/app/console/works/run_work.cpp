#include <algorithm>
#include <cstdio>
#include <vector>

// No parser of a library: what CLI11 brings along (streams, checks that are built before main)
// would be part of every run, which has to be as lean as it was and to survive a lack of memory.

#include "app/console/works/result_file.h"
#include "app/console/works/work.h"
#include "app/terminal_text.h"
#include "check/suggestion.h"
#include "core/concat.h"
#include "core/counted.h"
#include "core/paths.h"
#include "core/run_ended.h"
#include "generator/run_inputs.h"

namespace {

void tell(std::string_view utf8) {
  const std::string text = forTerminal(utf8);
  std::fwrite(text.data(), 1, text.size(), stderr);
}

std::string usageOf(const Work& work) {
  return concat("Uso: tip2bdl-cli ", work.name, " [opciones] ", work.operands, "\n");
}

int wrong(const Work& work, std::string_view problem) {
  tell(concat("tip2bdl-cli ", work.name, ": ", problem, "\n", usageOf(work)));
  return kExitWrongCommandLine;
}

std::string listOf(std::span<const std::string_view> words) {
  std::string list;
  for (const std::string_view word : words) list += (list.empty() ? "" : ", ") + std::string(word);
  return list;
}

std::string expectedOperands(const Work& work) {
  const std::string least = std::to_string(work.leastOperands);
  const std::string_view noun = work.operandNoun;
  if (work.leastOperands == 0) return concat("se esperaba 1 ", noun, " como máximo");
  const bool more = work.leastOperands != work.mostOperands;
  return work.leastOperands == 1
             ? concat("se esperaba ", more ? "al menos " : "", "1 ", noun)
             : concat("se esperaban ", more ? "al menos " : "", least, " ", noun, "s");
}

/// A file, and those that are read with it where it is a template.
std::vector<std::string> filesOf(const std::string& operand) {
  std::vector<std::string> files = {operand};
  faultOf([&] {
    const InputPaths paths = requireInputs(operand, operand, [](const Fault&) {});
    files.push_back(paths.table);
    files.push_back(paths.defaults);
  });
  return files;
}

/// What is wrong with arguments that were read, or nothing.
std::string problemWith(const Work& work, const WorkArguments& arguments) {
  for (const Option* option : work.options) {
    const auto given = arguments.values.find(option->name);
    if (given == arguments.values.end() || option->choices.empty()) continue;
    if (std::ranges::find(option->choices, given->second) == option->choices.end()) {
      return concat("la opción ", option->name, " no admite «", given->second,
                    "»; admite: ", listOf(option->choices));
    }
  }
  if (arguments.operands.size() < work.leastOperands ||
      arguments.operands.size() > work.mostOperands) {
    const std::size_t given = arguments.operands.size();
    return concat(expectedOperands(work), " y ", numbered(given, "se ha dado ", "se han dado "),
                  std::to_string(given));
  }
  const std::optional<std::string> result = arguments.given(kSalida.name);
  const bool isFile = std::ranges::find(work.options, &kSalida) != work.options.end();
  if (!result || !isFile || work.operandNoun != kFileNoun) return {};
  for (const std::string& operand : arguments.operands) {
    for (const std::string& file : filesOf(operand)) {
      if (sameFile(*result, file)) return concat("--salida sobrescribiría ", file);
    }
  }
  return {};
}

/// Takes the words behind a work's name apart, option by option.
class WorkParser {
 public:
  WorkParser(const Work& work, std::span<const std::string> words) : work_(work), words_(words) {}

  /// What is wrong with them, or nothing, with `read` filled.
  std::string parse(WorkArguments& read) {
    while (!words_.empty()) {
      const std::string word = take();
      if (word == "--") {
        read.operands.insert(read.operands.end(), words_.begin(), words_.end());
        return {};
      }
      if (word.size() < 2 || word.front() != '-') {
        read.operands.push_back(word);
      } else if (std::string problem = takeOption(word, read); !problem.empty()) {
        return problem;
      }
    }
    return {};
  }

 private:
  /// The dashes, which all have, say nothing of how near a name is.
  std::string unknownOption(const std::string& name) const {
    constexpr std::string_view kDashes = "--";
    std::vector<std::string_view> names;
    for (const Option* option : work_.options) {
      names.push_back(option->name.substr(kDashes.size()));
    }
    const std::string bare = name.substr(std::min(name.find_first_not_of('-'), name.size()));
    const std::string_view meant = nearestWord(bare, names);
    return concat("opción desconocida: ", name,
                  meant.empty() ? "" : concat("; ¿quería decir ", kDashes, meant, "?"));
  }

  std::string take() {
    std::string word = words_.front();
    words_ = words_.subspan(1);
    return word;
  }

  /// "--salida F" and "--salida=F".
  std::string takeOption(const std::string& word, WorkArguments& read) {
    const std::size_t equals = std::min(word.find('='), word.size());
    const std::string name = word.substr(0, equals);
    const auto found = std::ranges::find_if(
        work_.options, [&](const Option* option) { return option->name == name; });
    if (found == work_.options.end()) return unknownOption(name);
    const Option& option = **found;
    if (read.has(option.name)) return concat("la opción ", name, " se repite");
    const bool isSwitch = option.value.empty();
    if (isSwitch && equals < word.size()) return concat("la opción ", name, " no lleva valor");
    if (!isSwitch && equals == word.size() && words_.empty()) {
      return concat("a la opción ", name, " le falta su valor");
    }
    std::string& value = read.values[option.name];
    if (equals < word.size()) {
      value = word.substr(equals + 1);
    } else if (!isSwitch) {
      value = take();
    }
    return {};
  }

  const Work& work_;
  std::span<const std::string> words_;
};

}  // namespace

std::string WorkArguments::value(std::string_view option, std::string_view otherwise) const {
  const auto found = values.find(option);
  return found == values.end() ? std::string(otherwise) : found->second;
}

std::optional<std::string> WorkArguments::given(std::string_view option) const {
  const auto found = values.find(option);
  if (found == values.end()) return std::nullopt;
  return found->second;
}

std::string helpOf(const Work& work) {
  return concat("Ejemplo:\n  tip2bdl-cli ", work.name, " ", work.example, "\n\n", work.detail,
                "\n\n", usageOf(work), "\nOpciones:\n", linesOf(work.options));
}

std::string listOfWorks() {
  std::string list = "\nOtros trabajos (cada uno con su --help):\n";
  for (const Work& work : works()) {
    std::string name(work.name);
    name.resize(10, ' ');
    list += "  tip2bdl-cli " + name + " " + std::string(work.brief) + "\n";
  }
  return list + "Una plantilla que se llame como un trabajo se escribe con su carpeta: ./plano\n";
}

int runWork(const Work& work, std::span<const std::string> arguments) {
  WorkArguments read;
  const std::string misread = WorkParser(work, arguments).parse(read);
  if (!misread.empty()) return wrong(work, misread);
  if (read.has(kHelpOption.name)) {
    writeText({}, helpOf(work));
    return kExitDone;
  }
  if (const std::string problem = problemWith(work, read); !problem.empty()) {
    return wrong(work, problem);
  }
  try {
    return work.run(read);
  } catch (const WrongWorkArguments& mistake) {
    return wrong(work, mistake.problem);
  }
}
