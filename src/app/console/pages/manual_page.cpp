#include "app/console/pages/manual_page.h"

#include "app/console/arguments.h"
#include "app/console/pages/english.h"
#include "app/version.h"
#include "core/concat.h"

namespace {

/// The words that every page has.
struct Headings {
  std::string_view name, synopsis, description, options, example, seeAlso, orWord, option;
};
constexpr Headings kSpanish = {"NOMBRE",  "SINOPSIS",      "DESCRIPCIÓN", "OPCIONES",
                               "EJEMPLO", "VÉASE TAMBIÉN", "o",           "opciones"};
constexpr Headings kEnglish = {"NAME",    "SYNOPSIS", "DESCRIPTION", "OPTIONS",
                               "EXAMPLE", "SEE ALSO", "or",          "options"};

const Headings& headingsOf(Language language) {
  return language == Language::kSpanish ? kSpanish : kEnglish;
}

std::string upper(std::string text) {
  for (char& c : text) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  return text;
}

/// Text as roff: nothing in it is a command.
std::string escaped(std::string_view text) {
  std::string roff;
  bool lineStart = true;
  for (const char c : text) {
    if (lineStart && (c == '.' || c == '\'')) roff += "\\&";
    lineStart = c == '\n';
    if (c == '\\') {
      roff += "\\e";
    } else if (c == '-') {
      roff += "\\-";
    } else if (c == '\'') {
      roff += "\\(aq";
    } else if (c == '"') {
      roff += "\\(dq";
    } else {
      roff += c;
    }
  }
  return roff;
}

class Page {
 public:
  Page(const std::string& name, Language language)
      : words_(headingsOf(language)),
        text_(concat(".TH ", upper(name), " 1 \"\" \"tip2bdl ", kVersion, "\"\n")) {}

  const Headings& words() const { return words_; }
  void section(std::string_view heading) { text_ += concat(".SH ", heading, "\n"); }
  void name(const std::string& name, std::string_view brief) {
    section(words_.name);
    text_ += concat(escaped(name), " \\- ", escaped(brief), "\n");
  }
  void bold(std::string_view text) { text_ += concat(".B ", escaped(text), "\n"); }
  void lineBreak() { text_ += ".br\n"; }
  /// Paragraphs, parted by empty lines.
  void paragraphs(std::string_view text) {
    std::string rest = escaped(text);
    for (std::size_t gap = rest.find("\n\n"); gap != std::string::npos; gap = rest.find("\n\n")) {
      text_ += rest.substr(0, gap) + "\n.PP\n";
      rest.erase(0, gap + 2);
    }
    text_ += rest + "\n";
  }
  void option(std::string_view name, std::string_view value, std::string_view brief,
              std::string_view detail) {
    text_ += concat(".TP\n\\fB", escaped(name), "\\fR");
    if (!value.empty()) text_ += concat(" \\fI", escaped(value), "\\fR");
    text_ += concat("\n", escaped(brief), detail.empty() ? "\n" : ".\n");
    if (!detail.empty()) text_ += escaped(detail) + "\n";
  }
  void options(std::string_view work, std::span<const Option* const> rows, Language language) {
    section(words_.options);
    for (const Option* row : rows) {
      if (language == Language::kSpanish) {
        option(row->name, row->value, row->brief, row->detail);
      } else if (const EnglishOption* english = englishOf(work, row->name)) {
        option(row->name, english->value, english->brief, english->detail);
      }
    }
  }
  void example(std::string_view command) {
    section(words_.example);
    text_ += concat(".nf\n", escaped(command), "\n.fi\n");
  }
  void seeAlso(std::span<const std::string> pages) {
    section(words_.seeAlso);
    for (std::size_t i = 0; i < pages.size(); ++i) {
      text_ += concat(".BR ", escaped(pages[i]), " (1)", i + 1 < pages.size() ? "," : "", "\n");
    }
  }

  const std::string& text() const { return text_; }

 private:
  const Headings& words_;
  std::string text_;
};

std::string pageName(const Work& work) { return concat("tip2bdl-cli-", work.name); }

}  // namespace

std::string pageOfRun(Language language) {
  const EnglishWork& english = *englishOf("");
  const bool spanish = language == Language::kSpanish;
  Page page("tip2bdl-cli", language);
  page.name("tip2bdl-cli",
            spanish ? "genera el modelo térmico de un edificio de viviendas" : english.brief);
  const std::string_view files =
      spanish ? "PLANTILLA.bdl TIPOLOGIA.tip SALIDA MARCA" : english.operands;
  std::string joined(files);
  for (char& c : joined) c = c == ' ' ? ',' : c;
  page.section(page.words().synopsis);
  page.bold(concat("tip2bdl-cli [", page.words().option, "] ", files));
  page.lineBreak();
  page.bold(concat("tip2bdl-cli [", page.words().option, "] \"#", joined, "\""));
  for (const Work& work : works()) {
    page.lineBreak();
    const std::string_view operands = spanish ? work.operands : englishOf(work.name)->operands;
    page.bold(concat("tip2bdl-cli ", work.name, " [", page.words().option, "] ", operands));
  }
  page.section(page.words().description);
  page.paragraphs(spanish ? concat(kRunDetail, "\n\n", kRunExitCodes)
                          : std::string(english.detail));
  page.options("", runOptions(), language);
  page.example(concat("tip2bdl-cli ", kRunExample));
  std::vector<std::string> others = {"tip2bdl"};
  for (const Work& work : works()) others.push_back(pageName(work));
  page.seeAlso(others);
  return page.text();
}

std::string pageOf(const Work& work, Language language) {
  const bool spanish = language == Language::kSpanish;
  const EnglishWork& english = *englishOf(work.name);
  Page page(pageName(work), language);
  page.name(pageName(work), spanish ? work.brief : english.brief);
  page.section(page.words().synopsis);
  page.bold(concat("tip2bdl-cli ", work.name, " [", page.words().option, "] ",
                   spanish ? work.operands : english.operands));
  page.section(page.words().description);
  page.paragraphs(spanish ? work.detail : english.detail);
  page.options(work.name, work.options, language);
  page.example(concat("tip2bdl-cli ", work.name, " ", work.example));
  std::vector<std::string> others = {"tip2bdl-cli"};
  for (const Work& other : works()) {
    if (&other != &work) others.push_back(pageName(other));
  }
  page.seeAlso(others);
  return page.text();
}

std::string pageOfDesktop(Language language) {
  const bool spanish = language == Language::kSpanish;
  Page page("tip2bdl", language);
  page.name("tip2bdl", spanish ? "genera el modelo térmico de un edificio, con formulario"
                               : "generate the thermal model of a building, with a form");
  const std::string_view argument = spanish ? "\"#PLANTILLA.bdl,TIPOLOGIA.tip,SALIDA,MARCA\""
                                            : "\"#TEMPLATE.bdl,TYPOLOGY.tip,OUTPUT,MARKER\"";
  page.section(page.words().synopsis);
  page.bold(concat("tip2bdl ", argument));
  page.section(page.words().description);
  page.paragraphs(
      spanish ? "Hace lo mismo que tip2bdl-cli con esas cuatro rutas. Muestra un formulario\n"
                "mientras trabaja, y un error en un cuadro de mensaje, hasta que se cierra. Donde\n"
                "no hay pantalla trabaja sin ellos y sus mensajes salen por la salida de errores.\n"
                "\n"
                "Código de salida: 0 si el edificio se ha generado, 3 si ha habido un error."
              : "Does what tip2bdl-cli does with these four paths. It shows a form while it\n"
                "works, and an error in a message box until that is closed. Where there is no\n"
                "display it works without them, and its messages go to standard error.\n"
                "\n"
                "Exit status: 0 if the building was generated, 3 after an error.");
  page.example("tip2bdl \"#casa.bdl,casa.tip,casa-generada.bdl,fin.txt\"");
  page.seeAlso(std::vector<std::string>{"tip2bdl-cli"});
  return page.text();
}
