#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "bdl/searched_text.h"
#include "core/source_text.h"

/// A building description text held whole as one string and queried by substring search. There is
/// no tree: a keyword is found wherever its characters occur first, also inside a longer name or a
/// value, and a command cut out of the text is another `LeerBDL`. Line ends and tabs are blanks;
/// a carriage return stays.
///
///     "name" = TYPE  KEY = value  KEY = "text"  KEY = ( 1, 2 )  ..
///     SET-DEFAULT FOR TYPE  KEY = value  ..
///
/// Positions count from the start of the text, and 0 stands for "not found": what occurs at the
/// very start of the text is not found either, and files are written with that in mind.
///
/// Searching is remembered (see SearchedText), so that a text of thousands of commands costs one
/// walk: no look-up is const, and a text with all that was cut out of it belongs to one thread.
///
/// Errors: a value that breaks a limit and a command or block without its closing ".." end the run
/// with a message that names the file and the thing, a search key without its blanks and "=", and
/// with the place in the file.
class LeerBDL {
 public:
  /// What a look-up of a number met.
  enum class Lectura { kAusente, kSinNumero, kLeida };

  /// Bytes of the buffer that a text value must fit into, its closing NUL included.
  static constexpr std::size_t kLargoValor = 250;
  static constexpr std::size_t kSinLimite = std::string::npos;

  /// Takes the text of `fuente`, which must outlive this object and all that is cut out of it.
  explicit LeerBDL(const SourceText& fuente);
  explicit LeerBDL(SourceText&& fuente) = delete;

  /// The command of type `tipo` called `nombre` (with its double quotes) in `origen`, from its
  /// label up to its "..", followed by the type's first SET-DEFAULT FOR block; as getters take the
  /// first occurrence, a keyword of the command wins over the default. Without a command of that
  /// label, the command whose LONG-NAME, or else NAME, is `nombre`.
  LeerBDL(LeerBDL& origen, std::string_view tipo, const std::string& nombre);

  /// The block of `origen` from the first occurrence of `clave` up to the next "..".
  LeerBDL(LeerBDL& origen, std::string_view clave, bool& encontrado);

  virtual ~LeerBDL() = default;

  /// The text, which lives as long as this object; none for a command or block not found.
  std::optional<std::string_view> obtenerTexto() const;
  /// The file that the text comes from.
  const SourceText& fuente() const { return *fuente_; }

  /// Position of the first `patron` at or after `desde`; 0 when there is none.
  std::size_t buscar(std::string_view patron, std::size_t desde);

  // Places in the file, for messages. Nothing is kept for them: they are searched for anew.

  /// Where the value of `clave` stands: the first word behind the "=", or the whole of a quoted
  /// text or of a list. Where it is missing, because another keyword's line or a comment comes
  /// next, the "=", and where that is missing too, the keyword. None when it is absent.
  std::optional<Span> lugarDeValor(std::string_view clave);
  /// Where the first occurrence of `patron` stands.
  std::optional<Span> lugarDe(std::string_view patron);

  // Getters: the value behind the first "=" after the first occurrence of `clave`, which may carry
  // its own trailing " =" or blank. -1 when `clave` (or any "=" behind it) is absent, and the
  // destination stays as it was.

  /// 0 when `clave` occurs, whether or not its value is a number; `valor` changes only if it is.
  int leerEntero(std::string_view clave, int& valor);
  int leerReal(std::string_view clave, float& valor);
  /// The same for a caller who must tell a missing number from a missing keyword.
  Lectura consultarEntero(std::string_view clave, int& valor);
  Lectura consultarReal(std::string_view clave, float& valor);

  /// 0 when found. A quoted text keeps its quotes; any other ends before the next blank.
  int leerCadena(std::string_view clave, std::string& valor, std::size_t capacidad = kLargoValor);

  /// The number of values between the next "(" and ")": the commas plus one, at most as many as
  /// `valores` has room for. A value that is not a number leaves its place as it was.
  int leerListaReales(std::string_view clave, std::span<float> valores);

  /// The number of quoted strings, quotes kept, up to the one that stands directly before ")" or
  /// one blank away from it. At most `maximo`, each of less than `capacidad` bytes.
  int leerListaCadenas(std::string_view clave, std::vector<std::string>& valores,
                       std::size_t maximo, std::size_t capacidad);

  /// Commands of a type. A type that begins another type's word counts those too.
  int contarComandos(std::string_view tipo);
  /// Moves past the next command of `tipo` and returns its name in double quotes, of less than
  /// `capacidad` bytes. Ask contarComandos how often that goes well.
  std::string siguienteComando(std::string_view tipo, std::size_t capacidad = kLargoValor);
  void rebobinar() { cursor_ = 0; }
  void situarCursor(std::size_t posicion) { cursor_ = posicion; }

 private:
  struct Comandos;
  /// Where the label of a command stands; 0: nowhere.
  struct Etiqueta {
    std::size_t posicion;
  };
  /// Where a text that was cut out of the file's stands in that, both normalised. Its end may be a
  /// copy of another part, the type's defaults.
  struct Procedencia {
    std::size_t inicio = 0;                 // of the text
    std::size_t corte = std::string::npos;  // from here on, in the text, the defaults
    std::size_t defectos = 0;               // where those begin
  };
  /// A text that was cut out. Commands may share a "..": each of them is an end of the text between
  /// the ".." before and that one, so that it is copied once for all of them.
  struct Corte {
    std::shared_ptr<SearchedText> texto;
    std::size_t inicio = 0;  // where it begins in the model
  };
  LeerBDL(LeerBDL& origen, std::string_view tipo, Etiqueta etiqueta);

  std::string_view texto() const {
    return texto_ ? texto_->bytes().substr(inicio_) : std::string_view();
  }
  std::size_t enFichero(std::size_t posicion) const;
  Span tramo(std::size_t posicion, std::size_t largo) const;
  std::size_t buscarValor(std::string_view clave);
  std::size_t inicioDeValor(std::string_view clave);
  bool acabaLinea(std::size_t desde, std::size_t hasta) const;
  std::size_t buscarLista(std::string_view clave);

  // Commands (leer_bdl_commands.cpp).
  Comandos& comandosDe(std::string_view tipo);
  std::size_t buscarComando(std::string_view tipo, std::size_t desde);
  Etiqueta etiquetaDe(const std::string& nombre, std::string_view tipo);
  std::size_t buscarEtiqueta(const std::string& nombre, std::string_view tipo);
  std::size_t buscarNombreLargo(const std::string& nombre, std::string_view tipo);
  void verCandidato(Comandos& comandos);
  const Corte& corteDe(Comandos& comandos, std::size_t etiqueta, std::size_t cierre);
  Corte cortar(const Comandos& comandos, std::size_t etiqueta, std::size_t cierre);
  std::size_t buscarCierreDeComando(std::string_view tipo, std::size_t etiqueta);
  std::size_t buscarCierre(std::size_t posicion, std::string_view que);

  [[noreturn]] void fallarPorLargo(std::string_view clave, std::size_t posicion,
                                   std::size_t maximo) const;
  [[noreturn]] void fallar(std::string_view que, std::size_t posicion,
                           std::string_view problema) const;

  const SourceText* fuente_;
  std::shared_ptr<SearchedText> texto_;  // null: not found
  std::size_t inicio_ = 0;               // where in it this object's text begins
  Procedencia procedencia_;
  std::shared_ptr<Comandos> comandos_;  // of the type last asked for
  std::size_t cursor_ = 0;
};
