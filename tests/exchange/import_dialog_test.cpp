#include "exchange/import_dialog.h"

#include <gmock/gmock.h>

#include "exchange/sample_notes.h"
#include "support/fakes.h"

namespace trillomat {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Options = std::array<bool, 5>;

Options Only(size_t index) {
  Options options{};
  options.at(index) = true;
  return options;
}

TEST(ImportDialog, TheHighestOptionThatIsTrueCounts) {
  EXPECT_EQ(ImportDialog::Selected(Options{}), 0U);
  EXPECT_EQ(ImportDialog::Selected(Options{true, true, false, true, false}), 3U);
  for (size_t i = 0; i < 5; ++i) EXPECT_EQ(ImportDialog::Selected(Only(i)), i);
}

TEST(ImportDialog, EnablesTheButtonByFormatAndText) {
  FakeWorkspace fake;
  ImportDialog dialog(fake.ws);
  EXPECT_FALSE(dialog.CanImport());
  struct Step {
    size_t option;
    std::string text;
    bool enabled;
  };
  const std::vector<Step> steps{{0, "a:b", false}, {0, "a:b,c", true},  {2, "", true},   {3, "", true},
                                {1, "c", false},   {2, "long", false},  {4, "x", false}, {1, "\r\n", true},
                                {2, "", true},     {0, "no,no", false}, {0, ":,", true}};
  for (const Step& step : steps) {
    dialog.Update(Only(step.option), step.text);
    EXPECT_EQ(dialog.CanImport(), step.enabled) << step.option << " " << step.text;
  }
  fake.ws.ImportMelody = Tones({3});
  dialog.Load();
  EXPECT_FALSE(dialog.CanImport());
  EXPECT_THAT(fake.ws.ImportMelody, IsEmpty());
}

TEST(ImportDialog, RunsTheConverterOfTheSelection) {
  FakeWorkspace fake;
  ImportDialog dialog(fake.ws);
  EXPECT_TRUE(dialog.Import(Only(0), "a:d=4,:c,", false));
  EXPECT_THAT(fake.ws.ImportMelody, ElementsAre(Tone("c", 4)));
  EXPECT_TRUE(dialog.Import(Only(1), "C.", false));
  EXPECT_THAT(fake.ws.ImportMelody, ElementsAre(Tone("c", 3, 4.0F)));
  EXPECT_TRUE(dialog.Import(Only(2), "C", false));
  EXPECT_THAT(fake.ws.ImportMelody, ElementsAre(Tone("C", 3)));
  for (const size_t option : {3U, 4U}) {
    dialog.Load();
    EXPECT_TRUE(dialog.Import(Only(option), "C", true));
    EXPECT_THAT(fake.ws.ImportMelody, IsEmpty());
  }
  EXPECT_THAT(fake.log.lines, IsEmpty());
}

TEST(ImportDialog, AFailedImportLeavesNothing) {
  FakeWorkspace fake;
  ImportDialog dialog(fake.ws);
  EXPECT_FALSE(dialog.Import(Only(0), "one:colon,", true));
  EXPECT_THAT(fake.ws.ImportMelody, IsEmpty());
  EXPECT_FALSE(fake.ws.refusal.empty());
  EXPECT_THAT(fake.log.lines, ElementsAre("1: Error in Convert_RTTTL", "1: Failed to make the import"));
}

TEST(ImportDialog, AdaptsForTheT68i) {
  FakeWorkspace fake;
  ImportDialog dialog(fake.ws);
  EXPECT_TRUE(dialog.Import(Only(0), "a:d=4,:c3,d4,", true));
  EXPECT_THAT(fake.ws.ImportMelody, ElementsAre(Tone("c", 4), Tone("d", 5)));
  EXPECT_EQ(dialog.ImportOctaveShift, 3);
  EXPECT_EQ(fake.ws.refusal, "");

  EXPECT_TRUE(dialog.Import(Only(0), "a:d=4,:c3,d8,", true));
  EXPECT_THAT(fake.ws.ImportMelody, ElementsAre(Tone("c", 1), Tone("d", 6)));
  EXPECT_THAT(fake.log.lines, Contains("1: Failed to make the adaption"));
  EXPECT_EQ(fake.ws.refusal, "the melody spans octaves 1 to 6, which is more than the 4 octaves of the T68i");
}

}  // namespace
}  // namespace trillomat
