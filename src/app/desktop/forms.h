#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <string_view>

/// What the forms and the message box show, as data without a framework's type in it. A front end
/// is a loop over it. Texts are UTF-8.

struct Colour {
  unsigned char red, green, blue;
};

/// Sizes and places count pixels, from the top left of the client area. Those of a form's design
/// belong to its dots per inch; `at` below turns them into those of a screen.
struct FormSize {
  int width, height;
};
struct FormPlace {
  int left, top, width, height;
  friend constexpr bool operator==(const FormPlace&, const FormPlace&) = default;
};

/// A font by its family and, behind it, those that stand in for it where it is not installed.
/// `pixels` is the letters' height in pixels of the design; 0 is the desktop's own size.
struct FormFont {
  std::array<std::string_view, 6> families;  // the last ones may be empty
  int pixels;
};

/// The nearest pixel of a screen with `dpi` dots to the inch for one of a design with `designDpi`.
constexpr int toPixels(int design, int designDpi, int dpi) {
  return (design * dpi + designDpi / 2) / designDpi;
}

constexpr FormPlace at(const FormPlace& design, int designDpi, int dpi) {
  const auto scaled = [&](int pixels) { return toPixels(pixels, designDpi, dpi); };
  return {scaled(design.left), scaled(design.top), scaled(design.width), scaled(design.height)};
}

inline constexpr Colour kWhite = {255, 255, 255};
inline constexpr Colour kBlack = {0, 0, 0};

/// The progress form, `TPrincipal`: a title bar without icons, fixed, in the middle of the screen.
namespace progress_form {

inline constexpr int kDpi = 144;
inline constexpr std::string_view kTitle = "Calculando ...";
inline constexpr FormSize kClient = {545, 434};
inline constexpr FormFont kFont = {{"MS Sans Serif", "Microsoft Sans Serif", "Liberation Sans",
                                    "Nimbus Sans", "DejaVu Sans Condensed", "DejaVu Sans"},
                                   0};

inline constexpr Colour kPanel = kWhite;
inline constexpr FormPlace kLogo = {23, 21, 492, 159};
/// The logo's rasters (pictures/logo-100.bmp ...), each by the scale of a screen, in per cent,
/// whose pixels it has.
inline constexpr int kLogoScales[] = {100, 150, 200};
/// The scale of the raster to show on a screen: the screen's own or, where there is none, the next
/// larger; beyond all, the largest.
constexpr int logoScale(int dpi) {
  const auto* const last = std::end(kLogoScales) - 1;
  return *std::find_if(kLogoScales, last, [&](int scale) { return scale * 96 >= 100 * dpi; });
}
inline constexpr FormPlace kBar = {23, 385, 492, 23};
inline constexpr Colour kBarFilled = {0, 164, 219};
inline constexpr Colour kBarEmpty = kWhite;
inline constexpr Colour kBarEdge = {160, 190, 202};
/// What is filled touches it.
constexpr int barEdgeWidth(int dpi) { return dpi < 192 ? 1 : dpi / 96; }

/// The four stages of a rating; this program is the first.
struct Stage {
  const char* name;
  std::string_view caption;
  bool bold;
};
inline constexpr Stage kStages[] = {
    {"Label1", "Generando el edificio", true},
    {"Label2", "Obtención de parámetros característicos", false},
    {"Label3", "Cálculo de demandas, consumos, calificación", false},
    {"Label4", "Cálculo de medidas de ahorro precuantificadas", false},
};
inline constexpr FormFont kStageFont = {
    {"Tahoma", "Noto Sans", "DejaVu Sans Condensed", "DejaVu Sans"}, 18};
inline constexpr Colour kStageColour = kBlack;
inline constexpr FormPlace kFirstStage = {69, 200, 446, 28};
inline constexpr int kStagePitch = 46;

/// Where the stage of that index stands on a screen. Their distances are equal on every screen,
/// which the nearest pixel of each would not make them.
constexpr FormPlace stagePlace(std::size_t index, int dpi) {
  FormPlace place = at(kFirstStage, kDpi, dpi);
  place.top += static_cast<int>(index) * toPixels(kStagePitch, kDpi, dpi);
  return place;
}

inline constexpr int kTimerInterval = 1000;  // ms
inline constexpr int kIdleTicks = 2;         // that pass before the run, so that the form is seen

}  // namespace progress_form

/// The input form, `TfrmCalculo`: a title bar with the system menu only, in the middle.
namespace input_form {

inline constexpr int kDpi = 96;
inline constexpr std::string_view kTitle = "VORK";
inline constexpr FormSize kClient = {532, 243};
inline constexpr FormFont kFont = {progress_form::kFont.families, 11};

inline constexpr std::string_view kLabel = "Edificio Objeto";
inline constexpr FormPlace kLabelPlace = {61, 32, 71,
                                          21};  // as high as the edit, and centred on it
inline constexpr FormPlace kEditPlace = {136, 32, 313, 21};
inline constexpr std::string_view kCalculate = "Calcular";
inline constexpr FormPlace kCalculatePlace = {352, 208, 75, 25};
inline constexpr std::string_view kClose = "Cerrar";
inline constexpr FormPlace kClosePlace = {448, 208, 75, 25};

inline constexpr std::string_view kNoFile = "No ha introducido algunos de los ficheros.";
inline constexpr std::string_view kNoFileCaption = "Información";

}  // namespace input_form

/// The message box, where a front end draws its own: one text and one button.
namespace message_box {

inline constexpr int kDpi = 96;
inline constexpr std::string_view kButton = "Aceptar";
inline constexpr FormFont kFont = progress_form::kStageFont;  // one font with the form
inline constexpr int kFontDpi = progress_form::kDpi;
inline constexpr FormSize kButtonSize = {88, 26};  // at least
inline constexpr int kMargin = 18;
inline constexpr int kTextWidth = 440;      // of the longest lines
inline constexpr int kLineHeight = 120;     // per cent
inline constexpr int kCaptionsFrame = 120;  // what a frame has beside its caption

}  // namespace message_box
