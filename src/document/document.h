// The one place where the song that is being composed lives: elements, song information and cursor, the
// format mode, the file that it belongs to, and whether it has changed since.
//
//   commands --Change--> Document::Apply --ChangedRange--> observers (views, recovery, player)
//
// Everyone reads it; nobody changes the song but through Apply, which gives back the change that takes
// it back.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include "core/format_mode.h"
#include "core/song.h"

namespace trillomat {

/// One change of the song: a splice of elements, the song information, the cursor, or any of them.
struct Change {
  size_t at = 0;              ///< the splice: from here on ...
  size_t removed = 0;         ///< ... so many elements go, and
  ElementList inserted = {};  ///< these come in their place
  std::optional<SongInfo> info = {};
  std::optional<int32_t> cursor = {};  ///< where the cursor is afterwards
};

/// What a change came to, for those who show the document.
struct ChangedRange {
  size_t at = 0;
  size_t removed = 0;
  size_t inserted = 0;
  bool info = false;
  bool cursor = false;
  bool mode = false;

  bool ElementsChanged() const { return removed + inserted > 0; }
  /// The song itself is another now, not just what is shown of it.
  bool SongChanged() const { return ElementsChanged() || info; }
};

/// Is told after each change, before Apply returns. Abstract because many listen.
class DocumentObserver {
 public:
  DocumentObserver() = default;
  DocumentObserver(const DocumentObserver&) = delete;
  DocumentObserver& operator=(const DocumentObserver&) = delete;
  virtual ~DocumentObserver() = default;

  /// Must not change the document.
  virtual void DocumentChanged(const ChangedRange& range) = 0;
};

class Document {
 public:
  Document() = default;
  /// A document with a song, the cursor before its first element.
  Document(Song song, FormatMode mode);
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  const Song& CurrentSong() const { return song_; }
  const ElementList& Elements() const { return song_.elements; }
  const SongInfo& Info() const { return song_.info; }
  bool IsEmpty() const { return song_.elements.empty(); }
  /// Index of the last element, -1 for an empty song.
  int32_t LastIndex() const { return static_cast<int32_t>(song_.elements.size()) - 1; }
  bool HasElement(int32_t index) const { return index >= 0 && index <= LastIndex(); }
  /// The element at `index`, which must exist.
  const Element& At(int32_t index) const { return song_.elements[static_cast<size_t>(index)]; }

  /// Index of the element directly left of the insertion point; -1 is before the first element.
  int32_t Cursor() const { return cursor_; }
  FormatMode Mode() const { return mode_; }
  /// Another number after each change of the elements, for those who remember something about them.
  uint64_t Revision() const { return revision_; }
  /// The commonest octave and duration of the elements; costs the same however many there are.
  TokenDefaults CommonestDefaults() const { return count_.Commonest(); }

  /// The file that the song was read from or saved to, empty for none.
  const std::filesystem::path& File() const { return file_; }
  /// Whether the song has changed since it was read or saved.
  bool IsChanged() const { return changed_; }

  /// Makes the change and tells the observers. A splice beyond the end is cut off there, a cursor outside
  /// the song put to its nearest end. Returns the change that takes this one back.
  Change Apply(Change change);
  /// The elements are not converted: what the mode cannot express stays.
  void SetMode(FormatMode mode);
  /// The song belongs to `file`, or (empty) to none. It counts as unchanged, unless it was `changed` while
  /// that file was written.
  void SetFile(std::filesystem::path file, bool changed = false);

  /// `observer` has to outlive the document or be removed.
  void AddObserver(DocumentObserver& observer) { observers_.push_back(&observer); }
  void RemoveObserver(DocumentObserver& observer) { std::erase(observers_, &observer); }

 private:
  ElementList Splice(size_t at, size_t removed, ElementList inserted);
  void Tell(const ChangedRange& range);

  Song song_;
  DefaultsCount count_;
  uint64_t revision_ = 0;
  int32_t cursor_ = 0;
  FormatMode mode_ = FormatMode::IMelody;
  std::filesystem::path file_;
  bool changed_ = false;
  std::vector<DocumentObserver*> observers_;
};

}  // namespace trillomat
