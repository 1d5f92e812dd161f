#include "app/console/arguments.h"

#include "core/concat.h"

const std::string_view kUsage =
    "Uso: tip2bdl-cli [--quiet] PLANTILLA.bdl TIPOLOGIA.tip SALIDA MARCA\n"
    "     tip2bdl-cli [--quiet] \"#PLANTILLA.bdl,TIPOLOGIA.tip,SALIDA,MARCA\"\n"
    "     tip2bdl-cli --help | --version\n";

const std::string_view kRunExample = "casa.bdl casa.tip casa-generada.bdl fin.txt";

const std::string_view kRunDetail =
    "Genera el edificio de una tipología: reescribe la plantilla casa.bdl con los datos de\n"
    "casa.tip y crea al final la marca fin.txt, vacía. Junto a la plantilla deben estar su tabla\n"
    "de superficies (casa.tbl) y la librería defectos.inp. Error.log se crea junto a la marca.";

const std::string_view kRunExitCodes =
    "Código de salida: 0 si el edificio se ha generado, 3 si ha habido un error (el mensaje sale\n"
    "por la salida de errores y no se crea la marca), 2 si la línea de órdenes es incorrecta.";

namespace {
constexpr Option kQuiet{.name = "--quiet",
                        .value = "",
                        .brief = "no muestra el progreso (solo se muestra en un terminal)"};
constexpr Option kHelp{.name = "--help", .value = "", .brief = "muestra esta ayuda"};
constexpr Option kVersion{
    .name = "--version", .value = "", .brief = "muestra la versión, su commit y su compilador"};
constexpr Option kOptionsEnd{
    .name = "--", .value = "", .brief = "lo que sigue son rutas, aunque empiecen por \"-\""};
constexpr const Option* kRunOptions[] = {&kQuiet, &kHelp, &kVersion, &kOptionsEnd};
}  // namespace

std::span<const Option* const> runOptions() { return kRunOptions; }

std::string helpOfRun() {
  return concat("Ejemplo:\n  tip2bdl-cli ", kRunExample, "\n\n", kRunDetail,
                "\n\nUso:\n"
                "  tip2bdl-cli [opciones] PLANTILLA.bdl TIPOLOGIA.tip SALIDA MARCA\n"
                "  tip2bdl-cli [opciones] \"#PLANTILLA.bdl,TIPOLOGIA.tip,SALIDA,MARCA\"\n"
                "\nOpciones:\n",
                linesOf(kRunOptions), "\n", kRunExitCodes, "\n");
}

Request parseArguments(const std::vector<std::string>& arguments) {
  RunRequest run;
  std::vector<std::string> paths;
  bool optionsEnded = false;
  for (const std::string& argument : arguments) {
    if (optionsEnded || !argument.starts_with('-')) {
      paths.push_back(argument);
    } else if (argument == kOptionsEnd.name) {
      optionsEnded = true;
    } else if (argument == kHelp.name || argument == "-h") {
      return HelpRequest{};
    } else if (argument == kVersion.name) {
      return VersionRequest{};
    } else if (argument == kQuiet.name) {
      run.quiet = true;
    } else {
      return WrongArguments{"opción desconocida: " + argument};
    }
  }
  if (paths.size() == 4) {
    run.paths = {paths[0], paths[1], paths[2], paths[3]};
    return run;
  }
  if (paths.size() == 1 && paths[0].find('#') != std::string::npos) {
    run.paths = splitCommandLine(paths[0]);
    return run;
  }
  if (paths.size() == 1) return WrongArguments{"se esperaban cuatro rutas y se ha dado 1"};
  return WrongArguments{"se esperaban cuatro rutas y se han dado " + std::to_string(paths.size())};
}
