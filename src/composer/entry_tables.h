// What the keys and buttons of the note entry insert.
#pragma once

#include <array>
#include <string_view>

namespace trillomat {

/// The twelve piano keys, c to b, as notes. They never give flats.
inline constexpr std::array<std::string_view, 12> kToneKeys{"c",  "#c", "d",  "#d", "e",  "f",
                                                            "#f", "g",  "#g", "a",  "#a", "b"};

inline constexpr std::array<std::string_view, 6> kDurationCaptions{"Full note", "1/2 note",  "1/4 note",
                                                                   "1/8 note",  "1/16 note", "1/32 note"};

inline constexpr std::array<std::string_view, 4> kDurationExtraCaptions{"Nothing", "Dotted note",
                                                                        "Double dotted note", "2/3 length"};

/// One of the insert buttons. A token that takes a count or a volume is completed by what is typed.
struct InsertButton {
  std::string_view caption;
  std::string_view special;
  bool playedOnInsert;
};

/// Both light buttons carry the same caption.
inline constexpr std::array<InsertButton, 11> kInsertButtons{{{"LED on", "ledon", true},
                                                              {"LED off", "ledoff", true},
                                                              {"VIB on", "vibeon", true},
                                                              {"VIB off", "vibeoff", true},
                                                              {"Light on", "backon", true},
                                                              {"Light on", "backoff", true},
                                                              {"Volume (+)", "V+", true},
                                                              {"Volume (-)", "V-", true},
                                                              {"Repeat start", "(", false},
                                                              {"Repeat stop", "@", false},
                                                              {"Set Volume", "V", true}}};

inline constexpr int kRepeatStart = 8;
inline constexpr int kRepeatStop = 9;
inline constexpr int kSetVolume = 10;

}  // namespace trillomat
