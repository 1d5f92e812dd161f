#include <gtest/gtest.h>

#include <string>
#include <variant>

#include "core/concat.h"
#include "generator/window_emitter.h"
#include "manual/manual_page.h"
#include "plan/ordinary_plan.h"
#include "report/words.h"

// The worked example of the manual's page on windows is computed: the house of `nueva 2`, the
// windows of its main façade, at two percentages.

namespace {

constexpr float kAsked = 25;
constexpr float kTooWide = 60;
constexpr float kBayHeight = 3;  // m

std::string metres(float value) { return report::number(static_cast<double>(value), 2); }

class Example {
 public:
  Example()
      : data_(ordinaryPlan(2)),
        plan_(std::get<Plan>(planTipologia(data_))),
        bays_(plan_.numHuecosFachada[kSouth]),
        bayArea_(plan_.superficieFachada[kSouth] / static_cast<float>(bays_)),
        bayWidth_(bayArea_ / kBayHeight) {}

  std::string table() {
    const WindowSize asked = sizeWindow(kAsked, bayArea_, 0);
    const WindowSize wide = sizeWindow(kTooWide, bayArea_, 0);
    text_ = concat("| | con el ", shortest(kAsked), " % | con el ", shortest(kTooWide),
                   " % |\n|---|---|---|\n");
    const std::string facade =
        concat(metres(data_.longitudFachada),
               " × 3,00 × 2 plantas = ", metres(plan_.superficieFachada[kSouth]), " m²");
    row("fachada sur", facade, "igual");
    row("paños, uno por planta", std::to_string(bays_), "igual");
    row("un paño",
        concat(metres(plan_.superficieFachada[kSouth]), " / ", std::to_string(bays_), " = ",
               metres(bayArea_), " m²"),
        "igual");
    row("ancho del paño", concat(metres(bayArea_), " / 3,00 = ", metres(bayWidth_), " m"), "igual");
    row("ventana", areaOf(kAsked), areaOf(kTooWide));
    row("ancho con 1,20 m de alto", concat(widthOf(kAsked), ": cabe"),
        concat(widthOf(kTooWide), ": no cabe"));
    row("`WIDTH`", concat(metres(asked.width), " m"),
        concat(metres(wide.width), " m, el del paño"));
    row("`HEIGHT`", concat(metres(asked.height), " m"),
        concat(metres(areaIn(kTooWide)), " / ", metres(wide.width), " = ", metres(wide.height),
               " m"));
    row("`X`, a cada lado", placeIn(bayWidth_, asked.width, asked.x),
        placeIn(bayWidth_, wide.width, wide.x));
    row("`Y`, debajo", placeIn(kBayHeight, asked.height, asked.y),
        placeIn(kBayHeight, wide.height, wide.y));
    return text_;
  }

 private:
  float areaIn(float percentage) const { return bayArea_ * percentage / 100; }
  std::string areaOf(float percentage) const {
    return concat(shortest(percentage), " % de ", metres(bayArea_), " = ",
                  metres(areaIn(percentage)), " m²");
  }
  std::string widthOf(float percentage) const {
    return concat(metres(areaIn(percentage)), " / 1,20 = ", metres(areaIn(percentage) / 1.2F),
                  " m");
  }
  static std::string placeIn(float bay, float window, float place) {
    return concat("(", metres(bay), " − ", metres(window), ") / 2 = ", metres(place), " m");
  }
  void row(std::string_view what, std::string_view first, std::string_view second) {
    text_ += concat("| ", what, " | ", first, " | ", second, " |\n");
  }

  PlanData data_;
  Plan plan_;
  int bays_;
  float bayArea_, bayWidth_;
  std::string text_;
};

}  // namespace

TEST(WindowExampleGolden, IsWhatTheGeneratorComputes) {
  expectTable("ventanas.md", "ejemplo", Example().table());
}
