// The sample melodies: shown without taking the user's folder away, and copied when that is wanted.
#include <fstream>

#include "files/files_fixture.h"
#include "platform/installed_data.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using Offer = FileMessage::Offer;

class SamplesTest : public FilesTest {
 protected:
  SamplesTest() {
    host.musicFolder = folder / "Music";
    folder.MakeFolder("installed");
    for (const char* name : {"a.imy", "b.IMY", "c.rtx", "d.mel", "readme.txt"}) {
      folder.Write(std::string("installed/") + name, TuneText("c2"));
    }
    folder.MakeFolder("own");
    browser.SetFolder("C:\\own\\");
  }

  std::vector<std::string> CopiedNames() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(host.musicFolder / "Trillomat samples")) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
};

TEST_F(SamplesTest, AreCopiedOnceTheUserWantsThemAndTheListMovesThere) {
  browser.ShowSamples(folder / "installed");
  EXPECT_EQ(Rows(), "[Previous] a.imy b.IMY ");
  EXPECT_EQ(browser.OwnFolder(), "C:\\own\\");
  EXPECT_EQ(host.offer, Offer::CopySamples);
  EXPECT_FALSE(fs::exists(host.musicFolder)) << "nothing is copied by itself";
  browser.ShowSamples(folder / "installed");
  EXPECT_EQ(browser.OwnFolder(), "C:\\own\\");

  browser.Accept(Offer::CopySamples);
  EXPECT_THAT(host.notice, HasSubstr("Copied 4 sample melodies to "));
  EXPECT_THAT(CopiedNames(), ElementsAre("a.imy", "b.IMY", "c.rtx", "d.mel"));
  EXPECT_EQ(browser.OwnFolder(), "C:\\Music\\Trillomat samples\\");
  EXPECT_EQ(Rows(), "[Previous] a.imy b.IMY ");

  folder.Write("Music/Trillomat samples/a.imy", "the user's");
  fs::remove(host.musicFolder / "Trillomat samples" / "c.rtx");
  browser.ShowSamples(folder / "installed");
  browser.Accept(Offer::CopySamples);
  EXPECT_THAT(host.notice, HasSubstr("Copied 1 sample melody to "));
  EXPECT_THAT(host.notice, HasSubstr("; 3 files of these names stayed"));
  EXPECT_EQ(folder.Read("Music/Trillomat samples/a.imy"), "the user's");
}

TEST_F(SamplesTest, ThatCannotBeCopiedAreOfferedStill) {
  folder.Write("Music", "a file in the way");
  browser.ShowSamples(folder / "installed");
  browser.Accept(Offer::CopySamples);
  EXPECT_THAT(host.notice, HasSubstr("Not copied: "));
  EXPECT_EQ(host.offer, Offer::CopySamples);
  EXPECT_EQ(Rows(), "[Previous] a.imy b.IMY ");
}

TEST_F(SamplesTest, AreShownToWhomHasNoMelodiesAlone) {
  folder.Write("own/mine.mel", "CDE");
  browser.ShowSamplesToNewcomer(folder / "installed");
  EXPECT_EQ(browser.Folder(), "C:\\own\\") << "a melody of another format";
  fs::remove(folder / "own/mine.mel");
  browser.ShowSamplesToNewcomer({});
  EXPECT_EQ(browser.Folder(), "C:\\own\\") << "none are installed";
  browser.ShowSamplesToNewcomer(folder / "installed");
  EXPECT_EQ(browser.Folder(), "C:\\installed\\");
}

TEST_F(SamplesTest, AreFoundBesideTheProgramOrItsFolder) {
  for (const char* found : {"share/trillomat/samples", "bin/share/trillomat/samples"}) {
    const TempFolder prefix;
    EXPECT_EQ(InstalledData(prefix / "bin", "samples"), fs::path()) << found;
    prefix.MakeFolder(found);
    EXPECT_EQ(InstalledData(prefix / "bin", "samples"), prefix / found);
  }
}

}  // namespace
}  // namespace trillomat
