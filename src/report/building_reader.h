#pragma once

#include <functional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "report/fingerprint.h"
#include "report/generated_building.h"
#include "report/original_building.h"
#include "report/read_command.h"

/// The two halves of reading a building back: its lines are put together to commands, and these to
/// the building.
namespace report {

class CommandReader {
 public:
  using Line = OriginalBuilding::Line;
  /// Receives each command that a building is read from, when all its lines are there. Lines are
  /// pointed to: they must outlive what is made of them.
  using Take = std::function<void(const ReadCommand& command)>;

  CommandReader(const OriginalBuilding& original, Take take);

  void take(const Line& line);
  /// The same for lines of the template, which have been read before; ever further on.
  void takeCopied(std::string_view lines);
  /// The last thing to do.
  void finish() { endCommand(); }

  /// The template's windows that are there.
  const std::vector<bool>& windowsSeen() const { return windowsSeen_; }

 private:
  void endCommand();

  const OriginalBuilding& original_;
  Take take_;
  std::size_t nextCopied_ = 0;  // of the template's lines
  std::vector<bool> windowsSeen_;
  ReadCommand command_;
};

class BuildingReader {
 public:
  using Line = OriginalBuilding::Line;

  /// `bays`: of `plan`.
  BuildingReader(const OriginalBuilding& original, const Plan& plan, std::vector<Bay> bays,
                 Names names);

  void take(const ReadCommand& command);
  GeneratedBuilding finish(const std::vector<bool>& windowsSeen);

 private:
  /// An edge of a polygon: what all walls on it have in common.
  struct Edge {
    Vertex from, to;
    Facade side = kSouth;
    double length = 0;
    bool courtyard = false;
  };
  struct Polygon {
    bool there = false;
    int outline = -1;
    double area = 0;
    std::vector<Edge> edges;
  };

  void addPolygon(const ReadCommand& command);
  void addFloor(const ReadCommand& command);
  void addSpace(const ReadCommand& command);
  const Polygon* polygonOf(const ReadCommand& command) const;
  void addSurface(const ReadCommand& command);
  void placeOnEdge(WrittenSurface& surface, const ReadCommand& command, int edge);
  void addWindow(const ReadCommand& command);

  const OriginalBuilding& original_;
  bool keepsNames_;
  std::size_t outlines_;
  GeneratedBuilding building_;
  std::vector<Polygon> polygons_;  // of the template
  std::unordered_map<std::string_view, Polygon> otherPolygons_;
  std::size_t polygonsRead_ = 0;
  const Polygon* polygon_ = nullptr;  // of the space
  bool inSpace_ = false;
  int wall_ = -1;
};

}  // namespace report
