// What the keys and buttons of the note entry insert.
#pragma once

#include <array>
#include <string_view>

namespace trillomat {

/// The twelve piano keys, c to b, as notes. They never give flats.
inline constexpr std::array<std::string_view, 12> kToneKeys{"c",  "#c", "d",  "#d", "e",  "f",
                                                            "#f", "g",  "#g", "a",  "#a", "b"};

/// One of the insert buttons. A token that takes a count or a volume is completed by what is typed.
struct InsertButton {
  std::string_view special;
  bool playedOnInsert;
};

inline constexpr std::array<InsertButton, 11> kInsertButtons{{{"ledon", true},
                                                              {"ledoff", true},
                                                              {"vibeon", true},
                                                              {"vibeoff", true},
                                                              {"backon", true},
                                                              {"backoff", true},
                                                              {"V+", true},
                                                              {"V-", true},
                                                              {"(", false},
                                                              {"@", false},
                                                              {"V", true}}};

inline constexpr int kRepeatStart = 8;
inline constexpr int kRepeatStop = 9;
inline constexpr int kSetVolume = 10;

}  // namespace trillomat
