#pragma once

#include "plan/plan.h"
#include "typology/tipo.h"

/// What the outlines of the families are drawn with.

/// A named length: computed in double from 32-bit operands, kept as a 32-bit real, and used so by
/// the formulas that follow.
inline double length(double value) { return static_cast<float>(value); }

inline Vertex at(double x, double y) { return {static_cast<float>(x), static_cast<float>(y)}; }

/// Corners from the lower left one, counter-clockwise.
inline Vertices rectangle(double x0, double y0, double x1, double y1) {
  return {at(x0, y0), at(x1, y0), at(x1, y1), at(x0, y1)};
}

/// A rectangle in the middle of a block of L x D, `dx` and `dy` away from its sides, with a vertex
/// in the middle of each side, where the dwellings around it meet.
inline Vertices centralRectangle(double L, double D, double dx, double dy) {
  return {at(dx, dy),         at(L / 2, dy),     at(L - dx, dy), at(L - dx, D / 2),
          at(L - dx, D - dy), at(L / 2, D - dy), at(dx, D - dy), at(dx, D / 2)};
}

inline Outline block(double L, double D) { return {Role::kBlock, rectangle(0, 0, L, D)}; }
inline Outline dwelling(Vertices vertices) { return {Role::kDwelling, std::move(vertices)}; }
inline Outline stair(Vertices vertices) { return {Role::kStair, std::move(vertices)}; }
inline Outline courtyard(Vertices vertices) { return {Role::kCourtyard, std::move(vertices)}; }

/// The storeys that a plan counts bays and walls for, and the height of those walls, m.
inline int storeysOf(const PlanData& data) { return tipoRow(data.tipo).planStoreys; }
inline double heightOf(const PlanData& data) { return kStoreyHeight * storeysOf(data); }

/// The same area on opposite façades: `front` on the south and north ones, `side` on the others.
inline PerFacade<float> areas(double front, double side) {
  const auto f = static_cast<float>(front);
  const auto s = static_cast<float>(side);
  return {f, s, f, s};
}
