#include "settings/ini_text.h"

#include <gtest/gtest.h>

namespace trillomat {
namespace {

TEST(IniTextTest, ValuesAreReadAsTheyAreWrittenEverywhere) {
  const IniText text(
      "; a comment\nKey=outside\n[Path]\r\nFolder = c:\\\\tunes\\x20\\\\ \r\nFolder2=\"a; \\\"b\\\" \"\n"
      "[ Other ]\nKey=\\xe9\\x1f600\\t\\q\\\nKey no value\n[Path]\nLast=1\nLast=2");
  EXPECT_EQ(text.Get("Path", "Folder"), "c:\\tunes \\");
  EXPECT_EQ(text.Get("Path", "Folder2"), "a; \"b\" ");
  EXPECT_EQ(text.Get("Path", "Last"), "2");
  EXPECT_EQ(text.Get("Other", "Key"), "é\tq");
  EXPECT_EQ(text.Get("Path", "Key"), std::nullopt);
}

TEST(IniTextTest, EveryValueComesBack) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += {static_cast<char>(byte), 'a', static_cast<char>(byte)};
  for (const std::string& value : {all, std::string(), std::string(" a;b,c=d \\"), std::string("\"[x]\"")}) {
    IniText text("[Path]\nFolder=old\n");
    text.Set("Path", "Folder", value);
    text.Set("New", "Folder", value);
    EXPECT_EQ(text.Get("Path", "Folder"), value);
    EXPECT_EQ(text.Get("New", "Folder"), value);
  }
}

TEST(IniTextTest, WhatIsNotNamedStays) {
  IniText text("; mine\n[Settings]\nFuture=\\?\nMode=1\n\n[Window]\nWidth=5");
  text.Apply({.deletedSections = {},
              .values = {{"Settings", "Mode", "2"},
                         {"Settings", "Scale", "4"},
                         {"Window", "Width", "9", true},
                         {"Window", "Height", "7", true}}});
  EXPECT_EQ(text.Text(), "; mine\n[Settings]\nFuture=\\?\nMode=2\nScale=4\n\n[Window]\nWidth=5\nHeight=7\n");
  text.DeleteSection("Settings");
  text.Set("Path", "Folder", "c:");
  EXPECT_EQ(text.Text(), "; mine\n[Window]\nWidth=5\nHeight=7\n\n[Path]\nFolder=c:\n");
}

}  // namespace
}  // namespace trillomat
