// What the fuzz programs check, over their seeds, the test data and small mutations of both.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "fuzz/bodies.h"

namespace trillomat {
namespace {

void AddFilesOf(const std::filesystem::path& folder, std::vector<std::string>& texts) {
  const size_t before = texts.size();
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    std::ifstream in(entry.path(), std::ios::binary);
    texts.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  // Folders list their files in any order, but the mutations have to be the same everywhere.
  std::sort(texts.begin() + static_cast<std::ptrdiff_t>(before), texts.end());
}

// A few bytes removed, replaced, or copied from anywhere in the other texts.
std::string Mutated(std::string text, const std::vector<std::string>& others, std::mt19937& random) {
  for (uint32_t hits = 1 + random() % 4; hits > 0; --hits) {
    const size_t at = random() % (text.size() + 1);
    const size_t length = random() % 8;
    const std::string& other = others[random() % others.size()];
    switch (random() % 4) {
      case 0: text.erase(at, length); break;
      case 1: text.insert(at, 1, static_cast<char>(random())); break;
      default: text.insert(at, other.substr(random() % (other.size() + 1), length)); break;
    }
  }
  return text;
}

class FuzzBodies : public testing::TestWithParam<FuzzBody> {};

TEST_P(FuzzBodies, HoldForSeedsDataAndMutations) {
  constexpr int kMutations = 60;
  std::vector<std::string> texts;
  AddFilesOf(std::string(FUZZ_CORPUS_DIR "/") + std::string(GetParam().name), texts);
  ASSERT_FALSE(texts.empty());
  AddFilesOf(TEST_DATA_DIR, texts);
  std::mt19937 random(1);
  for (const std::string& text : texts) {
    EXPECT_NO_THROW(GetParam().run(text)) << testing::PrintToString(text);
    for (int i = 0; i < kMutations; ++i) {
      const std::string mutated = Mutated(text, texts, random);
      EXPECT_NO_THROW(GetParam().run(mutated)) << testing::PrintToString(mutated);
    }
  }
}

std::string NameOf(const testing::TestParamInfo<FuzzBody>& info) { return std::string(info.param.name); }

INSTANTIATE_TEST_SUITE_P(Texts, FuzzBodies, testing::ValuesIn(kTextBodies), NameOf);
INSTANTIATE_TEST_SUITE_P(Clipboard, FuzzBodies, testing::ValuesIn(kClipboardBodies), NameOf);
INSTANTIATE_TEST_SUITE_P(Songs, FuzzBodies, testing::ValuesIn(kSongBodies), NameOf);

}  // namespace
}  // namespace trillomat
