#include "platform/file_store_win32.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/ascii.h"
#include "core/limits.h"
#include "platform/file_names.h"
#include "platform/new_file_win32.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// An open file, closed when it goes.
class File {
 public:
  File(const fs::path& file, DWORD access, DWORD sharing, DWORD disposition)
      : handle_(CreateFileW(file.c_str(), access, sharing, nullptr, disposition, kFlags, nullptr)) {
    if (!*this) KeepLastError();
  }
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File() {
    if (*this) CloseHandle(handle_);
  }
  explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE operator*() const { return handle_; }
  bool Flush() const { return *this && FlushFileBuffers(handle_) != FALSE; }
  /// Locks one byte that lies behind the end of every file, so that all of them stay readable and writable.
  bool TryLock() const {
    OVERLAPPED place{};
    place.OffsetHigh = 0x7FFFFFFF;
    return *this &&
           LockFileEx(handle_, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) != FALSE;
  }

 private:
  // So that folders can be opened too.
  static constexpr DWORD kFlags = FILE_ATTRIBUTE_NORMAL | FILE_FLAG_BACKUP_SEMANTICS;

  HANDLE handle_;
};

class Win32Stream : public OutputFile {
 public:
  explicit Win32Stream(const fs::path& file) : file_(file, GENERIC_WRITE, kShareAll, OPEN_EXISTING) {}
  explicit operator bool() const { return static_cast<bool>(file_); }
  bool Write(std::string_view bytes) override { return WriteAll(*file_, bytes); }

 private:
  File file_;
};

class Win32Lock : public FileLock {
 public:
  explicit Win32Lock(const fs::path& file)
      : file_(file, GENERIC_READ | GENERIC_WRITE, kShareAll, OPEN_ALWAYS), held_(file_.TryLock()) {}
  bool Held() const { return held_; }

 private:
  File file_;
  bool held_;
};

// Takes the write protection from a file for as long as this lives, so that it can be opened for writing.
class Unprotected {
 public:
  explicit Unprotected(const fs::path& file) : file_(file), attributes_(GetFileAttributesW(file.c_str())) {
    if (Protected()) SetFileAttributesW(file_.c_str(), attributes_ & ~DWORD{FILE_ATTRIBUTE_READONLY});
  }
  Unprotected(const Unprotected&) = delete;
  Unprotected& operator=(const Unprotected&) = delete;
  ~Unprotected() {
    if (Protected()) SetFileAttributesW(file_.c_str(), attributes_);
  }

 private:
  bool Protected() const {
    return attributes_ != INVALID_FILE_ATTRIBUTES && (attributes_ & FILE_ATTRIBUTE_READONLY) != 0;
  }

  fs::path file_;
  DWORD attributes_;
};

// Adds the entry to the folders or to the files, if it is one of them. The system's own matching of names is
// not used, because it looks at the short names too, which nobody sees.
void AddEntry(const WIN32_FIND_DATAW& entry, std::string_view ending, FolderListing& listing) {
  const std::wstring_view name = entry.cFileName;
  const bool isFolder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  if ((!isFolder && (entry.dwFileAttributes & FILE_ATTRIBUTE_DEVICE) != 0) || name == L"." || name == L"..")
    return;
  FolderListing::Names& found = isFolder ? listing.folders : listing.files;
  const auto utf8 = Utf8OfWide(name);
  if (!utf8) {
    // It holds half a surrogate pair, so there is no UTF-8 for it.
    found.leftOut.emplace_back("(a name that is not valid Unicode)");
  } else if (isFolder || EndsNoCase(*utf8, ending)) {
    found.names.push_back(*utf8);
  }
}

bool IsDrivePath(std::string_view given) {
  return given.size() >= 3 && ToUpper(given[0]) >= 'A' && ToUpper(given[0]) <= 'Z' &&
         given.substr(1, 2) == ":\\";
}

bool IsDrivePresent(char letter) {
  return (::GetLogicalDrives() >> static_cast<unsigned>(ToUpper(letter) - 'A') & 1U) != 0;
}

// Whether all names in what follows the drive can be names of files.
bool AreNames(std::string_view names) {
  constexpr std::string_view kForbidden{"/:\0", 3};
  if (names.find_first_of(kForbidden) != names.npos) return false;
  while (!names.empty()) {
    const std::string_view name = names.substr(0, names.find('\\'));
    if (name == "." || name == "..") return false;
    names.remove_prefix(std::min(name.size() + 1, names.size()));
  }
  return true;
}

// Made absolute, without "." and ".." and with "\" alone; empty for what is no path.
std::wstring FullPath(const fs::path& path) {
  std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
  full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  return full;
}

// Pipes and devices are known by their names alone: opening one to ask would take it away from somebody else.
bool IsPipeName(const fs::path& file) { return file.native().starts_with(L"\\\\.\\"); }

FileBytes ReadAll(HANDLE file, size_t limit) {
  FileBytes read;
  std::array<char, 65536> block{};
  while (true) {
    DWORD count = 0;
    if (ReadFile(file, block.data(), block.size(), &count, nullptr) == FALSE) {
      KeepLastError();
      return {FileBytes::Fault::NotRead};
    }
    if (count == 0) return read;
    if (count > limit - read.bytes.size()) return {FileBytes::Fault::TooLarge};
    read.bytes.append(block.data(), count);
  }
}

bool IsFolder(const fs::path& file) {
  const DWORD attributes = GetFileAttributesW(file.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

}  // namespace

uint32_t Win32FileStore::Drives() { return ::GetLogicalDrives(); }

// With the volume's name for fixed drives only: of others the system could wait for a medium.
std::string Win32FileStore::DriveText(char letter) const {
  const std::string drive = std::string(1, letter) + ":";
  const fs::path root = drive + "\\";
  std::array<wchar_t, MAX_PATH + 1> label{};
  if (GetDriveTypeW(root.c_str()) != DRIVE_FIXED) return drive;
  if (GetVolumeInformationW(root.c_str(), label.data(), MAX_PATH, nullptr, nullptr, nullptr, nullptr, 0) ==
      FALSE)
    return drive;
  const auto name = Utf8OfWide(label.data());
  return name && !name->empty() ? drive + " " + *name : drive;
}

fs::path Win32FileStore::NativePath(std::string_view given) const {
  if (!IsDrivePath(given) || !IsDrivePresent(given.front()) || !AreNames(given.substr(3))) return {};
  // No folder's path ends with a "\", but that of a drive.
  if (given.size() > 3 && given.ends_with('\\')) given.remove_suffix(1);
  return WideOfUtf8(given).value_or(L"");
}

std::optional<std::string> Win32FileStore::GivenPath(const fs::path& native) const {
  auto given = Utf8OfWide(FullPath(native));
  if (!given || !IsDrivePath(*given)) return std::nullopt;
  given->front() = ToUpper(given->front());
  return given;
}

FolderListing Win32FileStore::List(const fs::path& folder, std::string_view pattern) {
  FolderListing listing;
  if (folder.empty()) return {.folders = {}, .files = {}, .complete = false};
  WIN32_FIND_DATAW entry;
  const HANDLE search = FindFirstFileW((folder / L"*").c_str(), &entry);
  if (search == INVALID_HANDLE_VALUE) {
    // The root of an empty drive has not even "." in it.
    listing.complete = GetLastError() == ERROR_FILE_NOT_FOUND;
    return listing;
  }
  do {
    AddEntry(entry, EndingOf(pattern), listing);
  } while (FindNextFileW(search, &entry) != FALSE);
  listing.complete = GetLastError() == ERROR_NO_MORE_FILES;
  FindClose(search);
  SortNoCase(listing.folders.names);
  SortNoCase(listing.files.names);
  return listing;
}

bool Win32FileStore::Exists(const fs::path& file) const {
  return GetFileAttributesW(file.c_str()) != INVALID_FILE_ATTRIBUTES;
}

FileKind Win32FileStore::Kind(const fs::path& file) const {
  if (IsPipeName(file)) return FileKind::Stream;
  const File opened(file, 0, kShareAll, OPEN_EXISTING);
  if (!opened) return Exists(file) ? FileKind::Plain : FileKind::None;
  if (GetFileType(*opened) != FILE_TYPE_DISK) return FileKind::Stream;
  return IsFolder(file) ? FileKind::Folder : FileKind::Plain;
}

std::optional<fs::path> Win32FileStore::Resolved(const fs::path& file) const {
  const DWORD attributes = GetFileAttributesW(file.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return file;
  const File opened(file, 0, kShareAll, OPEN_EXISTING);
  if (!opened) return std::nullopt;
  std::wstring target(GetFinalPathNameByHandleW(*opened, nullptr, 0, FILE_NAME_NORMALIZED), L'\0');
  target.resize(GetFinalPathNameByHandleW(*opened, target.data(), static_cast<DWORD>(target.size()),
                                          FILE_NAME_NORMALIZED));
  if (target.empty()) return file;
  return target;
}

FileBytes Win32FileStore::Read(const fs::path& file, size_t limit) const {
  if (Kind(file) == FileKind::Stream || IsFolder(file)) return {FileBytes::Fault::NotPlain};
  const File opened(file, GENERIC_READ, kShareAll, OPEN_EXISTING);
  if (!opened) return {FileBytes::Fault::NotOpened};
  LARGE_INTEGER size{};
  if (GetFileSizeEx(*opened, &size) != FALSE && static_cast<uint64_t>(size.QuadPart) > limit)
    return {FileBytes::Fault::TooLarge};
  return ReadAll(*opened, limit);
}

bool Win32FileStore::Delete(const fs::path& file) { return DeleteFileW(file.c_str()) != FALSE; }

bool Win32FileStore::Copy(const fs::path& from, const fs::path& to) {
  if (CopyFileW(from.c_str(), to.c_str(), TRUE) == FALSE) return false;
  const Unprotected copy(to);
  if (File(to, GENERIC_WRITE, kShareAll, OPEN_EXISTING).Flush()) return true;
  Delete(to);
  return false;
}

// In memory, because files that are copied in place are no larger than kLargestInput.
bool Win32FileStore::CopyInPlace(const fs::path& from, const fs::path& to, bool replace) {
  const FileBytes bytes = Read(from, kLargestInput);
  if (bytes.fault != FileBytes::Fault::None) return false;
  const auto copy = MakeCopy(from, to, replace);
  return copy && copy->Write(bytes.bytes) && copy->Flush() && copy->TakePlace();
}

std::unique_ptr<NewFile> Win32FileStore::Make(const fs::path& target, bool userAlone) {
  return MakeNewFile(target, userAlone);
}

std::unique_ptr<OutputFile> Win32FileStore::OpenStream(const fs::path& file, bool /*wait*/) {
  auto stream = std::make_unique<Win32Stream>(file);
  if (!*stream) return nullptr;
  return stream;
}

// Nothing to do: every move waits until the medium's journal has the names.
bool Win32FileStore::FlushFolder(const fs::path& /*folder*/) { return true; }

// Opening a file for deletion fails when somebody else has it open and does not allow that.
bool Win32FileStore::CanRemove(const fs::path& file) const {
  if (IsFolder(file) || IsReadOnly(file)) return false;
  return static_cast<bool>(File(file, DELETE, kShareAll, OPEN_EXISTING));
}

bool Win32FileStore::IsReadOnly(const fs::path& file) const {
  const DWORD attributes = GetFileAttributesW(file.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

bool Win32FileStore::Move(const fs::path& from, const fs::path& to) {
  return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE;
}

std::unique_ptr<FileLock> Win32FileStore::TryLock(const fs::path& file) {
  auto lock = std::make_unique<Win32Lock>(file);
  if (!lock->Held()) return nullptr;
  return lock;
}

}  // namespace trillomat
