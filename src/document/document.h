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
#include <memory>
#include <optional>
#include <vector>

#include "core/format_mode.h"
#include "document/parted_song.h"

namespace trillomat {

/// Elements of a song, as indexes: from `begin` up to, but without, `end`.
struct ElementRange {
  int32_t begin = 0;
  int32_t end = 0;

  int32_t Size() const { return end - begin; }
  bool IsEmpty() const { return begin >= end; }
  bool operator==(const ElementRange&) const = default;
};

/// The file that a song belongs to. Each song that a document has held has a number of its own, so that one
/// that is brought back by Undo is known as the one that was saved.
struct SongFile {
  static constexpr uint64_t kNothing = UINT64_MAX;  ///< the file holds none of the document's songs
  /// In a Change: the file holds the song as it is after the change, whose number is not known before.
  static constexpr uint64_t kThisSong = kNothing - 1;

  std::filesystem::path path = {};  ///< empty for none
  uint64_t saved = kNothing;        ///< number of the song that the file holds
};

/// One change of the song: a splice of elements, the song information, the cursor, or any of them; and what
/// another song brings along, its mode and its file.
struct Change {
  size_t at = 0;              ///< the splice: from here on ...
  size_t removed = 0;         ///< ... so many elements go, and
  ElementList inserted = {};  ///< these come in their place
  /// Instead of the splice: the elements from `at` on get these octaves. Takes a fraction of the time and the
  /// memory of putting other elements there.
  std::vector<int16_t> octaves = {};
  std::optional<SongInfo> info = {};
  std::optional<int32_t> cursor = {};  ///< where the cursor is afterwards
  /// What is selected afterwards. Where none is named, elements or a cursor that change leave nothing
  /// selected.
  std::optional<ElementRange> selection = {};
  std::optional<FormatMode> mode = {};  ///< the elements are not converted to it
  std::optional<SongFile> file = {};    ///< see SongFile
  std::optional<uint64_t> song = {};    ///< the number of the song that this brings back; set by Apply alone
};

/// What a change came to, for those who show the document. The splice is told as in Change.
struct ChangedRange {
  size_t at = 0;
  size_t removed = 0;
  size_t inserted = 0;
  bool octaves = false;             ///< the inserted elements are the removed ones with other octaves
  std::optional<int> tonesUp = {};  ///< by how many octaves, if all tones of them moved alike
  bool info = false;
  bool cursor = false;
  bool selection = false;
  bool mode = false;
  bool file = false;  ///< which file the song belongs to, or whether that holds it

  bool ElementsChanged() const { return removed + inserted > 0; }
  /// The song itself is another now, not only what is shown of it or where it is kept.
  bool SongChanged() const { return ElementsChanged() || info; }
};

/// Who is told of each change, before Apply returns.
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

  /// The song in one piece: takes time in proportion to its length, and references to elements become
  /// invalid.
  const Song& CurrentSong() const { return song_.Whole(); }
  /// The song as it is now, for those who let events run while they work on it: it stays as it is, and is
  /// copied only if the document changes meanwhile.
  std::shared_ptr<const Song> SharedSong() const { return song_.Shared(); }
  const ElementList& Elements() const { return CurrentSong().elements; }
  /// Copies of the elements of a range, which must exist.
  ElementList Elements(ElementRange range) const;
  const SongInfo& Info() const { return song_.Info(); }
  size_t Size() const { return song_.Size(); }
  bool IsEmpty() const { return Size() == 0; }
  /// Index of the last element, -1 for an empty song.
  int32_t LastIndex() const { return static_cast<int32_t>(Size()) - 1; }
  bool HasElement(int32_t index) const { return index >= 0 && index <= LastIndex(); }
  /// The element at `index`, which must exist.
  const Element& At(int32_t index) const { return song_.At(static_cast<size_t>(index)); }

  /// Calls `visit` with each element of a range, which must exist.
  template <typename Visit>
  void ForEach(ElementRange range, Visit visit) const {
    song_.ForEach(static_cast<size_t>(range.begin), static_cast<size_t>(range.end), visit);
  }

  /// Index of the element directly left of the insertion point; -1 is before the first element.
  int32_t Cursor() const { return cursor_; }
  /// The selected elements, none when it is empty.
  ElementRange Selection() const { return selection_; }
  /// Where the selection began, as a cursor: that end of it which is away from the cursor; the cursor itself
  /// where nothing is selected.
  int32_t Anchor() const;
  FormatMode Mode() const { return mode_; }
  /// Another number after each change of the elements, for those who remember something about them.
  uint64_t Revision() const { return revision_; }
  /// The commonest octave and duration of the elements; costs the same however many there are.
  TokenDefaults CommonestDefaults() const { return count_.Commonest(); }

  /// The file that the song was read from or saved to, empty for none.
  const std::filesystem::path& File() const { return file_.path; }
  /// Whether the song is another than the one that was read or saved.
  bool IsChanged() const { return number_ != file_.saved; }
  /// A number that no other song of this document has had.
  uint64_t SongNumber() const { return number_; }

  /// Makes the change and tells the observers. A splice beyond the end is cut off there, a cursor or a
  /// selection outside the song put to its nearest end. Returns the change that takes this one back.
  Change Apply(Change change);
  /// The song was read from `file` or saved there; empty for a song of no file. It counts as unchanged,
  /// unless it was `changed` while that file was written.
  void SetFile(std::filesystem::path file, bool changed = false);

  /// `observer` has to outlive the document or be removed before.
  void AddObserver(DocumentObserver& observer) { observers_.push_back(&observer); }
  void RemoveObserver(DocumentObserver& observer) { std::erase(observers_, &observer); }

 private:
  ElementList Splice(size_t at, size_t removed, ElementList inserted);
  ChangedRange RangeOf(const Change& change) const;
  void ChangeElements(Change& change, ChangedRange& range, Change& back);
  void PlaceCursorAndSelection(const Change& change, ChangedRange& range);
  ElementRange InSong(ElementRange range) const;
  void Tell(const ChangedRange& range);

  PartedSong song_;
  DefaultsCount count_;
  uint64_t revision_ = 0;
  int32_t cursor_ = -1;
  ElementRange selection_;
  FormatMode mode_ = FormatMode::IMelody;
  uint64_t number_ = 0;
  uint64_t lastNumber_ = 0;  ///< the highest that a song was given
  SongFile file_{.saved = 0};
  std::vector<DocumentObserver*> observers_;
};

}  // namespace trillomat
