#include "platform/new_file_win32.h"

#include <algorithm>
#include <string>
#include <utility>
// after windows.h
#include <aclapi.h>

namespace trillomat {
namespace {

namespace fs = std::filesystem;

class Win32NewFile : public NewFile {
 public:
  /// It gets the time of change and the attributes of `like`, if that is given and a file.
  explicit Win32NewFile(fs::path target, fs::path like = {}, bool replace = true)
      : target_(std::move(target)),
        like_(std::move(like)),
        replace_(replace),
        replaces_(fs::exists(target_)) {
    constexpr int kMostNames = 100;
    const fs::path folder = target_.parent_path();
    for (int i = 0; i < kMostNames && !*this; ++i) {
      name_ = folder / (L".saving-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(i) +
                        L".trillomat");
      handle_ = CreateFileW(name_.c_str(), GENERIC_WRITE | DELETE | WRITE_DAC, 0, nullptr, CREATE_NEW,
                            FILE_ATTRIBUTE_NORMAL, nullptr);
      if (!*this && GetLastError() != ERROR_FILE_EXISTS) break;
    }
    if (*this) {
      DeleteWhenClosed(true);
    } else {
      KeepLastError();
    }
  }
  Win32NewFile(const Win32NewFile&) = delete;
  Win32NewFile& operator=(const Win32NewFile&) = delete;
  ~Win32NewFile() override { Close(); }

  explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }

  bool Write(std::string_view bytes) override { return WriteAll(handle_, bytes); }
  bool Flush() override { return FlushFileBuffers(handle_) != FALSE || KeepLastError(); }
  bool TakePlace() override;

 private:
  void DeleteWhenClosed(bool yes) const {
    FILE_DISPOSITION_INFO disposition{};
    disposition.DeleteFile = yes ? TRUE : FALSE;
    SetFileInformationByHandle(handle_, FileDispositionInfo, &disposition, sizeof disposition);
  }
  void Close() {
    if (*this) CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE));
  }

  fs::path target_;
  fs::path like_;
  bool replace_;   ///< it may replace a file
  bool replaces_;  ///< something has the target's name
  fs::path name_;
  HANDLE handle_ = INVALID_HANDLE_VALUE;
};

// The move waits until the medium's journal has it.
bool Win32NewFile::TakePlace() {
  if (replaces_) KeepRights(target_, handle_);
  WIN32_FILE_ATTRIBUTE_DATA found{};
  if (!like_.empty() && GetFileAttributesExW(like_.c_str(), GetFileExInfoStandard, &found) != FALSE) {
    FILE_BASIC_INFO info{};
    info.LastWriteTime.LowPart = found.ftLastWriteTime.dwLowDateTime;
    info.LastWriteTime.HighPart = static_cast<LONG>(found.ftLastWriteTime.dwHighDateTime);
    info.FileAttributes = found.dwFileAttributes;
    SetFileInformationByHandle(handle_, FileBasicInfo, &info, sizeof info);
  }
  DeleteWhenClosed(false);
  Close();
  const DWORD how = MOVEFILE_WRITE_THROUGH | (replace_ ? MOVEFILE_REPLACE_EXISTING : 0);
  if (MoveFileExW(name_.c_str(), target_.c_str(), how) != FALSE) return true;
  const DWORD code = GetLastError();
  DeleteFileW(name_.c_str());
  SetLastError(code);
  return KeepLastError();
}

void KeepAccessList(const fs::path& from, HANDLE to) {
  PACL list = nullptr;
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  if (GetNamedSecurityInfoW(from.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &list,
                            nullptr, &descriptor) != ERROR_SUCCESS)
    return;
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  DWORD revision = 0;
  GetSecurityDescriptorControl(descriptor, &control, &revision);
  const SECURITY_INFORMATION inheritance = (control & SE_DACL_PROTECTED) != 0
                                               ? PROTECTED_DACL_SECURITY_INFORMATION
                                               : UNPROTECTED_DACL_SECURITY_INFORMATION;
  SetSecurityInfo(to, SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | inheritance, nullptr, nullptr, list,
                  nullptr);
  LocalFree(descriptor);
}

}  // namespace

// Nobody else can read what is in the folders of a user, so there is nothing to do for `userAlone`.
std::unique_ptr<NewFile> MakeNewFile(const fs::path& target, bool /*userAlone*/) {
  auto file = std::make_unique<Win32NewFile>(target);
  if (!*file) return nullptr;
  return file;
}

std::unique_ptr<NewFile> MakeCopy(const fs::path& from, const fs::path& target, bool replace) {
  auto file = std::make_unique<Win32NewFile>(target, from, replace);
  if (!*file) return nullptr;
  return file;
}

void KeepRights(const fs::path& from, HANDLE to) {
  KeepAccessList(from, to);
  constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
  const DWORD attributes = GetFileAttributesW(from.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & kKept) == 0) return;
  FILE_BASIC_INFO info{};  // its times stay where they are 0
  info.FileAttributes = (attributes & kKept) | FILE_ATTRIBUTE_ARCHIVE;
  SetFileInformationByHandle(to, FileBasicInfo, &info, sizeof info);
}

bool WriteAll(HANDLE file, std::string_view bytes) {
  constexpr size_t kMostAtOnce = size_t{1} << 24;
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto count = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
    if (WriteFile(file, bytes.data(), count, &written, nullptr) == FALSE) return KeepLastError();
    if (written == 0) return false;
    bytes.remove_prefix(written);
  }
  return true;
}

}  // namespace trillomat
