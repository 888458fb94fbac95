// The chance that a random test goes by: all of it follows from one seed.
#pragma once

#include <cstddef>
#include <iterator>
#include <random>

namespace trillomat {

class Dice {
 public:
  explicit Dice(unsigned seed) : random_(seed) {}

  /// From 0 on.
  int Number(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }
  bool OneIn(int times) { return Number(times) == 0; }
  /// Of a list that is not empty.
  template <class List>
  decltype(auto) AnyOf(List& things) {
    return *std::next(std::begin(things), Number(static_cast<int>(std::size(things))));
  }

 private:
  std::mt19937 random_;
};

}  // namespace trillomat
