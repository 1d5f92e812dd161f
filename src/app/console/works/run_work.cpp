#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>

#include "app/console/terminal_text.h"
#include "app/console/works/result_file.h"
#include "app/console/works/work.h"
#include "core/concat.h"

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

std::string asLeft(const Option& option) {
  return option.value.empty() ? std::string(option.name) : concat(option.name, " ", option.value);
}

std::string listOf(std::span<const std::string_view> words) {
  std::string list;
  for (const std::string_view word : words) list += (list.empty() ? "" : ", ") + std::string(word);
  return list;
}

std::string expectedOperands(const Work& work) {
  const std::string least = std::to_string(work.leastOperands);
  if (work.leastOperands != work.mostOperands) {
    return work.leastOperands == 1 ? "se esperaba al menos 1 fichero"
                                   : "se esperaban al menos " + least + " ficheros";
  }
  return work.leastOperands == 1 ? "se esperaba 1 fichero" : "se esperaban " + least + " ficheros";
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
    return concat(expectedOperands(work), " y se han dado ",
                  std::to_string(arguments.operands.size()));
  }
  return {};
}

/// The parser's own words, in ours.
std::string problemOf(const CLI::ParseError& error, CLI::App& parser) {
  if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
    const std::vector<std::string> extras = parser.remaining();
    return concat("opción desconocida: ", extras.empty() ? std::string() : extras.front());
  }
  const std::string what = error.what();
  const std::size_t end = what.find_first_of(" :");
  if (what.starts_with("--")) {
    return concat("a la opción ", what.substr(0, end), " le falta su valor, o se repite");
  }
  return "línea de órdenes incorrecta";
}

}  // namespace

std::string WorkArguments::value(std::string_view option, std::string_view otherwise) const {
  const auto found = values.find(option);
  return found == values.end() ? std::string(otherwise) : found->second;
}

std::string helpOf(const Work& work) {
  std::size_t width = 0;
  for (const Option* option : work.options) width = std::max(width, asLeft(*option).size());
  std::string help = usageOf(work) + "\n" + std::string(work.detail) + "\n\nOpciones:\n";
  for (const Option* option : work.options) {
    std::string left = asLeft(*option);
    left.resize(width, ' ');
    help += "  " + left + "  " + std::string(option->brief) + "\n";
    if (!option->detail.empty()) {
      help += std::string(width + 4, ' ') + std::string(option->detail) + "\n";
    }
  }
  return help;
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

int tellWrongCommandLine(const WorkArguments& arguments, std::string_view problem) {
  return wrong(*arguments.work, problem);
}

int runWork(const Work& work, std::span<const std::string> arguments) {
  CLI::App parser;
  parser.set_help_flag();
  WorkArguments read;
  read.work = &work;
  std::map<std::string_view, CLI::Option*> options;
  std::map<std::string_view, std::string> values;
  for (const Option* option : work.options) {
    const std::string name(option->name);
    options[option->name] = option->value.empty() ? parser.add_flag(name)
                                                  : parser.add_option(name, values[option->name]);
  }
  parser.add_option("ficheros", read.operands);
  try {
    std::vector<std::string> backwards(arguments.rbegin(), arguments.rend());
    parser.parse(std::move(backwards));
  } catch (const CLI::ParseError& error) {
    return wrong(work, problemOf(error, parser));
  }
  for (const auto& [name, option] : options) {
    if (option->count() > 0) read.values[name] = values[name];
  }
  if (read.has(kHelpOption.name)) {
    writeResult({}, forTerminal(helpOf(work)));
    return kExitDone;
  }
  if (const std::string problem = problemWith(work, read); !problem.empty()) {
    return wrong(work, problem);
  }
  return work.run(read);
}
