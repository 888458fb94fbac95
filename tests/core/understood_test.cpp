#include <gtest/gtest.h>

#include "core/codec.h"

namespace trillomat {
namespace {

TEST(UnderstoodTest, WhatAReaderOnlyKeptIsNotUnderstood) {
  struct Case {
    FormatMode mode;
    std::string_view token;
    bool understood;
  };
  constexpr FormatMode kImy = FormatMode::IMelody;
  constexpr FormatMode kRtx = FormatMode::Rtttl;
  SilentLog log;
  for (const Case& each : {Case{kImy, "*4#c2;", true},
                           {kImy, "C5", true},
                           {kImy, "r0", true},
                           {kImy, "*9c2", false},
                           {kImy, "*4x2", false},
                           {kImy, "c7", false},
                           {kImy, "xr2", false},
                           {kImy, "ledon", true},
                           {kImy, "ledonn", false},
                           {kImy, "V15", true},
                           {kImy, "Vx", false},
                           {kImy, "@3)", true},
                           {kImy, "@)", false},
                           {kRtx, "16c#6.", true},
                           {kRtx, "8r", true},
                           {kRtx, "8#e", false},
                           {kRtx, "8c_5", false},
                           {kRtx, "3c", false},
                           {kRtx, "c1", false},
                           {kRtx, "so", false},
                           {kRtx, "", false},
                           {FormatMode::EMelody, "++(b)d.", true},
                           {FormatMode::EMelody, "(b)f", false},
                           {FormatMode::Melody, "R", true},
                           {FormatMode::Melody, "5c", false}}) {
    EXPECT_EQ(IsUnderstood(Decode(each.token, each.mode, {}, log)), each.understood) << each.token;
  }
}

}  // namespace
}  // namespace trillomat
