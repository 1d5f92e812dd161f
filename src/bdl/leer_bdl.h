#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "bdl/texto.h"

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
/// Errors: a file that cannot be read, a value that breaks a limit and a command or block without
/// its closing ".." end the run with a message that names the file and the thing, a search key
/// without its blanks and "=".
class LeerBDL {
 public:
  /// What a look-up of a number met.
  enum class Lectura { kAusente, kSinNumero, kLeida };

  /// Bytes of the buffer that a text value must fit into, its closing NUL included.
  static constexpr std::size_t kLargoValor = 250;
  static constexpr std::size_t kSinLimite = std::string::npos;

  /// Loads the file `ruta`.
  explicit LeerBDL(const std::string& ruta);

  /// The command of type `tipo` called `nombre` (with its double quotes) in `origen`, from its
  /// label up to its "..", followed by the type's first SET-DEFAULT FOR block; as getters take the
  /// first occurrence, a keyword of the command wins over the default. Without a command of that
  /// label, the command whose LONG-NAME, or else NAME, is `nombre`.
  LeerBDL(LeerBDL& origen, std::string_view tipo, const std::string& nombre);

  /// The block of `origen` from the first occurrence of `clave` up to the next "..".
  LeerBDL(const LeerBDL& origen, std::string_view clave, bool& encontrado);

  virtual ~LeerBDL() = default;

  /// The text, which lives as long as this object; none for a command or block not found.
  std::optional<std::string_view> obtenerTexto() const;
  /// The file that the text comes from.
  const std::string& ruta() const { return ruta_; }

  /// Position of the first `patron` at or after `desde`; 0 when there is none.
  std::size_t buscar(std::string_view patron, std::size_t desde) const;

  // Getters: the value behind the first "=" after the first occurrence of `clave`, which may carry
  // its own trailing " =" or blank. -1 when `clave` (or any "=" behind it) is absent, and the
  // destination stays as it was.

  /// 0 when `clave` occurs, whether or not its value is a number; `valor` changes only if it is.
  int leerEntero(std::string_view clave, int& valor) const;
  int leerReal(std::string_view clave, float& valor) const;
  /// The same for a caller who must tell a missing number from a missing keyword.
  Lectura consultarEntero(std::string_view clave, int& valor) const;
  Lectura consultarReal(std::string_view clave, float& valor) const;

  /// 0 when found. A quoted text keeps its quotes; any other ends before the next blank.
  int leerCadena(std::string_view clave, std::string& valor,
                 std::size_t capacidad = kLargoValor) const;

  /// The number of values between the next "(" and ")": the commas plus one, at most as many as
  /// `valores` has room for. A value that is not a number leaves its place as it was.
  int leerListaReales(std::string_view clave, std::span<float> valores) const;

  /// The number of quoted strings, quotes kept, up to the one that stands directly before ")" or
  /// one blank away from it. At most `maximo`, each of less than `capacidad` bytes.
  int leerListaCadenas(std::string_view clave, std::vector<std::string>& valores,
                       std::size_t maximo, std::size_t capacidad) const;

  /// Commands of a type. A type that begins another type's word counts those too.
  int contarComandos(std::string_view tipo) const;
  /// Moves past the next command of `tipo` and returns its name in double quotes, of less than
  /// `capacidad` bytes. Ask contarComandos how often that goes well.
  std::string siguienteComando(std::string_view tipo, std::size_t capacidad = kLargoValor);
  void rebobinar() { cursor_ = 0; }
  void situarCursor(std::size_t posicion) { cursor_ = posicion; }

 private:
  struct Indice;
  /// Where the label of a command stands; 0: nowhere.
  struct Etiqueta {
    std::size_t posicion;
  };
  LeerBDL(LeerBDL& origen, std::string_view tipo, Etiqueta etiqueta);

  void cargar();
  std::string_view texto() const { return texto_->bytes().substr(inicio_); }
  Indice& indice(std::string_view tipo);
  std::size_t buscarValor(std::string_view clave) const;
  std::size_t buscarComando(std::string_view tipo, std::size_t desde) const;
  std::size_t buscarEtiqueta(const std::string& nombre, std::string_view tipo);
  std::size_t buscarNombreLargo(const std::string& nombre, std::string_view tipo);
  void verCandidato(Indice& comandos);
  void cortarTextoComun(Indice& comandos, std::size_t etiqueta, std::size_t cierre) const;
  std::size_t buscarCierreDeComando(std::string_view tipo, std::size_t etiqueta) const;
  std::size_t buscarCierre(std::size_t posicion, std::string_view que) const;
  [[noreturn]] void fallarPorLargo(std::string_view clave, std::size_t maximo) const;
  [[noreturn]] void fallar(std::string_view que, std::string_view problema) const;

  std::string ruta_;
  std::shared_ptr<Texto> texto_;    // null: not found
  std::size_t inicio_ = 0;          // where in it this object's text begins
  std::shared_ptr<Indice> indice_;  // of the type last asked for
  std::size_t cursor_ = 0;
};
