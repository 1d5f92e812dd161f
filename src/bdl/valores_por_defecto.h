#pragma once

#include <string>
#include <string_view>
#include <vector>

class LeerBDL;
class SourceText;

/// The defaults library `defectos.inp`: the physical and numerical parameters that the typology
/// file does not give. Read and checked at the beginning of every run, which uses none of them
/// (state that nothing reads): they are for later stages of the chain. Read once, at construction,
/// into plain fields named as their keywords ("-" as "_"). The whole file is one text: keywords
/// belong to no command, but for the thermal bridges.
///
/// A keyword that is absent leaves its field at the value given here. Units and meaning belong to
/// the stages that consume the fields.
///
/// Errors: what LeerBDL reports of values, lists and commands.
class ValoresPorDefecto {
 public:
  static constexpr std::size_t kLargoTexto = 200;       // bytes of a text, NUL included
  static constexpr std::size_t maxNoHabitables = 100;   // names of the NO-HABITABLES list
  static constexpr std::size_t largoNoHabitable = 100;  // bytes of such a name, NUL included

  /// One THERMAL-BRIDGE command.
  struct PuenteTermico {
    std::string nombre;  // in double quotes
    float TTL = 0;
    float ANGLE_MIN = 0;
    float ANGLE_MAX = 0;
    std::string TYPE = "MASONRY";
    std::string PARTITION = "BOTH";
  };

  /// Reads the whole of `fuente`.
  explicit ValoresPorDefecto(const SourceText& fuente);
  virtual ~ValoresPorDefecto() = default;

  /// The keywords that hold one number each and stand in a table, as they are searched for.
  static std::vector<std::string_view> clavesDeNumeros();

  float LONGITUD_DE_REFERENCIA = 15.0F;

  std::string AUTOMATIC_SHUTTER = "NO";
  float SHUTTER_TRANSMITTANCE_MULTIPLIER_SUMMER = 1.0F;  // these three are read only when
  float SHUTTER_CONDUCTANCE_MULTIPLIER_SUMMER = 1.0F;    // AUTOMATIC-SHUTTER is given
  float SHUTTER_CONDUCTANCE_MULTIPLIER_WINTER = 1.0F;

  float ABS_CORTA = 0;
  float EMISIVIDAD = 0;
  float ROCP = 0;
  float DELTAT = 0;
  float FURN_CP = 0;
  float FURN_FRACTION = 0;
  float FURN_WEIGHT = 0;
  int MAX_DEN = 0;
  int MIN_NUM = 0;
  int MAX_NUM = 0;
  float HCINT = 0;
  float HRINT = 0;
  float HPINT = 0;
  float HPOUT = 0;
  int NINT_WF = 0;
  float ALTURA_FORJADO = 0.2F;
  float DELTAP_ENSAYO_PERMEABILIDAD = 100.0F;
  float PERMEABILIDAD = 42.0F;
  float VAPOUR_DIFFUSIVITY_FACTOR = 1.0F;
  int NUM_HORAS = 0;
  int NUM_PUN_VEN = 0;
  int NUM_PUN_MUR = 0;
  float HCEXT = 0;
  float FF_SKY_C = 0;
  float HREXT = 5.0F;
  char hrextDado = 'N';  // 'S' when HREXT is given
  int DISCR_FI = 0;
  int DISCR_TE = 0;
  float GROUND_REFLECTANCE = 0;
  std::string SPACER_TYPE;
  float FRAME_WIDTH = 0;
  float FRAME_ABS = 0;
  float FRAME_CONDUCT = 0;
  int JET_PARTITION = 0;
  int CROSS_PARTITION = 0;
  float AIR_TEMPERATURE = 0;
  int X_PARTITION = 0;
  int Y_PARTITION = 0;
  int Z_PARTITION = 0;

  // Which of the three holds is said by INTERNAL-PARTITIONS.
  bool particionesSobrescritas = false;
  bool particionesAnadidas = false;
  bool particionesPropias = true;
  float ABS_PARTITION = 0;  // absent: the value of ABS-CORTA
  float EMI_PARTITION = 0;  // absent: the value of EMISIVIDAD
  float CON_PARTITION = 0.8F;
  float DEN_PARTITION = 1500.0F;
  float SH_PARTITION = 800.0F;
  float TH_PARTITION = 0.1F;
  float RES_PARTITION = 0;
  float U_PARTITION = 1.0F;  // read only when TYPE_PARTITION is "U-VALUE"
  float RV_PARTITION = 1.0F;
  std::string TYPE_PARTITION = "U-VALUE";

  float TINIFINITEDIFFERENCES = 22.0F;

  float LINEAR_THERMAL_TRANSMITTANCE = 0;
  int PILARES_POR_ZONA = 0;
  bool variasOpciones = false;  // SEVERAL-OPTIONS = YES
  int MULTIPLICADOR_CONTORNOS = 4;
  float TOLERANCIA_PTL = 0.001F;
  std::vector<PuenteTermico> puentes;  // in file order; their number is numPuentes()
  int numPuentes() const { return static_cast<int>(puentes.size()); }
  float TOL_HOR_FRENTE_FORJADO = 30.0F;

  float GROUND_K = 2.0F;
  float GROUND_L = 1.0F;
  float GROUND_RO = 2000.0F;
  float GROUND_SH = 1000.0F;
  float GROUND_R = 0.5F;
  float GROUND_RV = 1.0F;
  float GROUND_EIT = 0;
  float GROUND_L2DSTEADY = 0;
  float GROUND_ZGROUND = 0;
  float GROUND_HEIGHT = 0;

  float EIGENRATIO = 50.0F;
  int NFRMUROS = 100;
  float TAUMUROANCHO = 540000.0F;

  int numNoHabitables = -1;                // -1 when NO-HABITABLES is absent
  std::vector<std::string> NO_HABITABLES;  // in double quotes

  float RH_MAX = 0;
  float RH_MIN = 0;
  float ANCHO_P = 0;
  float ANCHO_V = 0;
  float ALTO_P = 0;
  float ALTO_V = 0;
  float CD_P = 0;
  float CD_V = 0;
  float H0 = 0;
  float ARF_P = 0;
  float ARF_V = 0;
  float LONG_LEAK = 0;
  float C_LEAK = 0;
  float N_LEAK = 0;
  float H_LEAK = 0;
  float SUP_CR = 0;
  float C_CR = 0;
  float N_CR = 0;
  float H_CR = 0;

 private:
  void leerGenerales(LeerBDL& modelo);
  void leerParticiones(LeerBDL& modelo);
  void leerPuentesTermicos(LeerBDL& modelo);
  void leerNoHabitables(LeerBDL& modelo);
  void leerPersianas(LeerBDL& modelo);
};
