#include "report/plan_foot.h"

#include <algorithm>
#include <iterator>

#include "plan/families.h"
#include "report/sheet.h"
#include "report/words.h"
#include "typology/tipo.h"

namespace report {

std::string familyTitle(int tipo) {
  const TipoRow& row = tipoRow(tipo);
  std::string title(familyRow(row.family).name);
  if (row.storeys.most == 1) title += " de una planta";
  if (row.storeys.most == 2) title += " de dos plantas";
  return title;
}

namespace {

constexpr double kTick = 1.5;  // mm, of the legend's bay marks
constexpr std::size_t kTitleLines = 3;

// mm, from left to right.
constexpr double kAreasWidth = 60, kLegendWidth = 42, kTitleWidth = 72;
constexpr double kGreatestGap = 8;

class FootDrawer {
 public:
  FootDrawer(Drawing& drawing, const PlanFoot& foot) : drawing_(drawing), foot_(foot) {}

  void rule(Point at, double width) { drawing_.line(Sign::kRule, at, {at.x + width, at.y}); }

  double addAreas(Point at, double width) {
    rule(at, width);
    double y = at.y + 2;
    const auto row = [&](const std::string& name, const std::string& measures,
                         const std::string& area) {
      y += kSmall;
      drawing_.labels.push_back({{at.x, y}, kSmall, Anchor::kStart, false, false, name});
      const double right = at.x + width;
      drawing_.labels.push_back({{right, y}, kSmall, Anchor::kEnd, false, false, area});
      if (!measures.empty()) {
        const double middle = right - textWidth(area, kSmall) - 2;
        drawing_.labels.push_back({{middle, y}, kSmall, Anchor::kEnd, false, false, measures});
      }
      y += kSmall * 0.9;
    };
    for (const Room& room : foot_.rooms) {
      const std::string name =
          room.count > 1 ? std::to_string(room.count) + " " + room.name + "s" : room.name;
      row(name,
          room.letter.empty() && room.width > 0
              ? number(room.width, 2) + "×" + number(room.depth, 2)
              : "",
          quantity(room.area * room.count, 1, "m²"));
    }
    rule({at.x, y}, width);
    y += 1.5;
    row("Superficie de planta", "", quantity(foot_.sheet.data.areaPlanta, 1, "m²"));
    return y;
  }

  double addLegend(Point at, double width) {
    rule(at, width);
    double y = at.y + 2;
    const auto row = [&](const std::string& text) {
      y += kSmall;
      drawing_.labels.push_back({{at.x + 14, y}, kSmall, Anchor::kStart, false, false, text});
      const double middle = y - kSmall / 2;
      y += kSmall * 0.9;
      return middle;
    };
    const auto has = [&](Sign sign) { return std::ranges::count(foot_.wallSigns, sign) > 0; };
    const auto stroke = [&](Sign sign, const std::string& text) {
      const double middle = row(text);
      drawing_.line(sign, {at.x + 0.5, middle}, {at.x + 11, middle});
    };
    stroke(Sign::kFacade, "Fachada");
    if (has(Sign::kParty)) stroke(Sign::kParty, "Medianera");
    if (has(Sign::kPartition)) stroke(Sign::kPartition, "Partición");
    const double bay = row("Límite de paño");
    drawing_.line(Sign::kFacade, {at.x + 0.5, bay - 0.7}, {at.x + 11, bay - 0.7});
    drawing_.shapes.push_back({Sign::kBayMark,
                               {{{at.x + 3, bay - 0.7}, {at.x + 3, bay - 0.7 + kTick}},
                                {{at.x + 8.5, bay - 0.7}, {at.x + 8.5, bay - 0.7 + kTick}}},
                               false});
    if (!foot_.sheet.windows.empty()) {
      const double middle = row("Ventana");
      for (const double d : {-0.35, 0.35}) {
        drawing_.line(Sign::kWindow, {at.x + 0.5, middle + d}, {at.x + 11, middle + d});
      }
    }
    if (foot_.hasOpenAir) {
      const double middle = row("Aire libre");
      Shape hatch{Sign::kHatch, {}, false};
      addHatch(hatch.lines, {at.x + 0.5, middle - 1.3, at.x + 11, middle + 1.3}, {});
      drawing_.shapes.push_back(std::move(hatch));
    }
    return addLines(drawing_, {at.x, y + 1}, kSmall,
                    wrapped("Muros representados por su línea.", kSmall, width));
  }

  double addTitle(Point at, double width) {
    rule(at, width);
    double y =
        addLines(drawing_, {at.x, at.y + 2}, kLarge, wrapped(foot_.sheet.content, kLarge, width));
    if (!foot_.sheet.title.empty()) {
      y = addLines(drawing_, {at.x, y}, kMedium,
                   wrapped(foot_.sheet.title, kMedium, width, kTitleLines));
    }
    const std::string family = familyTitle(foot_.sheet.data.tipo);
    std::vector<std::string> lines = wrapped(
        "Tipología " + std::to_string(foot_.sheet.data.tipo) + ": " + family, kSmall, width);
    const auto add = [&](const std::string& text) {
      std::ranges::copy(wrapped(text, kSmall, width), std::back_inserter(lines));
    };
    add("Giro del edificio: " + degrees(foot_.sheet.giro) +
        ". Azimut desde el norte, en sentido horario.");
    if (!foot_.sheet.program.empty()) add(foot_.sheet.program);
    if (!foot_.sheet.fingerprint.empty()) add("Huella " + foot_.sheet.fingerprint);
    add("Escala 1:" + std::to_string(foot_.scale) + ". Cotas en metros.");
    y = addLines(drawing_, {at.x, y}, kSmall, lines);
    addScaleBar(drawing_, {at.x, y + 4.5}, 1000.0 / foot_.scale);
    return y + 6.5;
  }

  Drawing& drawing_;
  const PlanFoot& foot_;
};

}  // namespace

double addPlanFoot(Drawing& drawing, const PlanFoot& foot, double left, double right, double top) {
  FootDrawer drawer(drawing, foot);
  const double gap =
      std::min(kGreatestGap, (right - left - kAreasWidth - kLegendWidth - kTitleWidth) / 2);
  const double legend = left + kAreasWidth + gap;
  return std::max({drawer.addAreas({left, top}, kAreasWidth),
                   drawer.addLegend({legend, top}, kLegendWidth),
                   drawer.addTitle({right - kTitleWidth, top}, kTitleWidth)});
}

std::string planContent(int tipo) {
  const TipoRow& row = tipoRow(tipo);
  if (!familyRow(row.family).isHouse()) return "Planta tipo";
  return row.planStoreys == 1 ? "Planta baja" : "Plantas baja y 1";
}

}  // namespace report
