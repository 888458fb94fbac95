#include "platform/file_store_posix.h"

#include <gmock/gmock.h>

#include "support/temp_folder.h"

namespace trillomat {
namespace {

using testing::ElementsAre;

TEST(DriveMapTest, FindsTheRemovableVolumes) {
  EXPECT_THAT(RemovableVolumes("/dev/sda1 / ext4 rw 0 0\n"
                               "/dev/sdb1 /media/ada/My\\040Stick\\134\\0111 vfat rw 0 0\n"
                               "/dev/sdc1 /run/media/ada/B exfat rw 0 0\n"
                               "tmpfs /run tmpfs rw 0 0\n"
                               "nas:/tunes /mnt nfs rw 0 0\n"
                               "/dev/sdd1 /mnt/c\\04 ext4 rw 0 0\n"
                               "/dev/sde1 /mediaeval ext4 rw 0 0\n"
                               "tmpfs /media tmpfs rw 0 0\n"
                               "\nnonsense\n\\"),
              ElementsAre("/media/ada/My Stick\\\t1", "/run/media/ada/B", "/mnt", "/mnt/c\\04"));
}

TEST(DriveMapTest, AVolumeKeepsItsLetterWhileItIsMounted) {
  constexpr uint32_t kAlways = 1U << 2 | 1U << 25;  // C: and Z:
  const TempFolder folder;
  folder.Write("mounts", "a /media/ada/A x\nb /media/ada/B x\n");
  DriveMap drives("/home/ada/", folder / "mounts");
  EXPECT_EQ(drives.Refresh(), kAlways | 1U << 3 | 1U << 4);
  EXPECT_EQ(drives.Text('C'), "C: /home/ada");
  EXPECT_EQ(drives.Text('E'), "E: /media/ada/B");
  EXPECT_EQ(drives.Text('Z'), "Z: /");
  folder.Write("mounts", "b /media/ada/B x\n");
  EXPECT_EQ(drives.Refresh(), kAlways | 1U << 4);
  folder.Write("mounts", "c /media/ada/C x\nb /media/ada/B x\na /media/ada/A x\n");
  EXPECT_EQ(drives.Refresh(), kAlways | 1U << 3 | 1U << 4 | 1U << 5);
  EXPECT_EQ(drives.Text('D'), "D: /media/ada/C");
  EXPECT_EQ(drives.Text('E'), "E: /media/ada/B");
  std::string many;
  for (int i = 0; i < 40; ++i) many += "x /mnt/" + std::to_string(i) + " x\n";
  folder.Write("mounts", many);
  EXPECT_EQ(drives.Refresh(), 0x3fffffcU);
}

TEST(DriveMapTest, TranslatesPathsBothWays) {
  const TempFolder folder;
  folder.Write("mounts", "b /media/ada/B:\\134 x\n");
  const DriveMap drives("/home/ada", folder / "mounts");
  const std::pair<std::string_view, std::string_view> both[] = {{"C:\\", "/home/ada"},
                                                                {"C:\\tunes\\a.imy", "/home/ada/tunes/a.imy"},
                                                                {"Z:\\", "/"},
                                                                {"Z:\\home\\adam", "/home/adam"},
                                                                {"D:\\\xff", "/media/ada/B:\\/\xff"},
                                                                {"C:\\...", "/home/ada/..."}};
  for (const auto& [given, native] : both) {
    EXPECT_EQ(drives.Native(given), native);
    EXPECT_EQ(drives.Given(native), given);
  }
  EXPECT_EQ(drives.Native("c:\\tunes\\"), "/home/ada/tunes");
  EXPECT_EQ(drives.Given("/home/ada/x/../tunes/./a.imy"), "C:\\tunes\\a.imy");
  EXPECT_EQ(drives.Given("a.imy"), drives.Given(std::filesystem::current_path() / "a.imy"));
  const std::string_view refused[] = {"q:\\a", "E:\\", std::string_view("c:\\\0", 4)};
  for (const std::string_view given : refused) EXPECT_EQ(drives.Native(given), "") << given;
  for (const char* native : {"/home/ada/a:b", "/tmp/c\\d", ""}) EXPECT_EQ(drives.Given(native), std::nullopt);
}

}  // namespace
}  // namespace trillomat
