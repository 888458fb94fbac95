#include "cli/program.h"
#include "support/midi_bytes.h"

namespace trillomat {
namespace {

using testing::Eq;
using testing::HasSubstr;
using testing::IsEmpty;

std::string Imelody(const std::string& name, const std::string& melody) {
  return "BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\nNAME:" + name +
         "\r\nCOMPOSER:\r\nBEAT:120\r\nSTYLE:S0\r\nVOLUME:V10\r\nMELODY:" + melody + "\r\nEND:IMELODY\r\n";
}

class MidiFilesTest : public ProgramTest {};

TEST_F(MidiFilesTest, AMelodyIsWrittenAsItIsHeardAndReadAgain) {
  folder_.Write("tune.imy", Imelody("Tune", "(*3c2ledonr3@2)(*4&e3.@0)"));
  folder_.Write("silent.imy", Imelody("Tune", "ledon"));
  folder_.Write("long.imy", Imelody("Tune", "(*3c0@30000)"));
  ExpectEach({{"tune.imy tune.mid", 0, IsEmpty(), IsEmpty()},
              {"tune.mid - --mode imelody", 0, Eq(Imelody("Tune", "*3c2r3*3c2r3#d3.")), IsEmpty()},
              {"tune.mid tune.MIDI", 0, IsEmpty(), IsEmpty()},
              {"tune.mid tune.MIDI", 1, IsEmpty(), HasSubstr("tune.MIDI exists already")},
              {"silent.imy new.mid", 1, IsEmpty(), HasSubstr("there is nothing to hear")},
              {"long.imy new.mid", 1, IsEmpty(), HasSubstr("more than an hour of sound")},
              {"tune.imy new.rtx --track 1", 2, IsEmpty(), HasSubstr("--track is for MIDI files")},
              {"tune.imy new.mid --spelling modern", 2, IsEmpty(), HasSubstr("--spelling")}},
             "convert ");
  EXPECT_EQ(folder_.Read("tune.MIDI"), folder_.Read("tune.mid"));
  EXPECT_FALSE(std::filesystem::exists("new.mid"));
}

TEST_F(MidiFilesTest, ATrackIsTakenOutAndWhatWasLeftIsSaid) {
  MidiTrackDraft high;
  high.Note(0, 96, 72);
  high.Note(0, 96, 60);
  MidiTrackDraft low;
  low.Note(0, 96, 36);
  folder_.Write("two", MidiBytes(1, 96, {high.Track(), low.Track()}));
  folder_.Write("text.mid", "MThd");
  const auto left =
      Eq("trillomat-cli: two: 1 other track is left out\n"
         "trillomat-cli: two: 1 note of a lower voice is left out\n");
  ExpectEach({{"two - --mode imelody", 0, Eq(Imelody("", "c2")), left},
              {"two a.rtx --track 2", 0, IsEmpty(), HasSubstr("the melody is moved up by 2 octaves")},
              {"two b.rtx --track 3", 1, IsEmpty(), HasSubstr("has no notes in track 3")},
              {"text.mid b.rtx", 1, IsEmpty(), HasSubstr("text.mid: the MIDI file is broken off")},
              {"two b.rtx --adapt-t68i", 2, IsEmpty(), HasSubstr("is for texts")}},
             "import --from midi ");
}

}  // namespace
}  // namespace trillomat
