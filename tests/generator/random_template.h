#pragma once

#include <random>
#include <string>
#include <string_view>

/// Templates of all that means something to a generation, in any order, and typologies for them.
/// Few make sense; most buildings come to an end, one way or the other.
class RandomTemplate {
 public:
  static constexpr std::string_view kTable =
      "Tabla\nde superficies\n5 0\n"
      "\"Muro\"\n30 10 0.5 3 10 180 90 0 1 0\n"
      "\"Ventana\"\n3 1 0.5 1 1 180 90 1 1 0\n"
      "\"Med\"\n3 1 0.5 1 1 90 90 1 1 0\n"
      "HEIGHT\n3 1 0.5 1 1 0 90 0 1 0\n"
      "\"Cubierta\"\n3 1 0.5 1 1 0 0 1 1 0";

  explicit RandomTemplate(unsigned seed) : random_(seed) {}

  std::string text();
  std::string typology();
  int storeys() { return 1 + number(7); }

 private:
  int number(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
  bool oneIn(int n) { return number(n) == 0; }
  const std::string& word();
  std::string line();
  std::string lines(int count, const std::string& lineEnd);

  std::mt19937 random_;
};
