// What was done to the song, so that it can be taken back and done again. Every change that a command of the
// user makes goes through here. A step takes memory only for what it replaced.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "document/document.h"

namespace trillomat {

class History {
 public:
  /// The most memory that the steps take together, in bytes. Beyond it the oldest are forgotten, the newest
  /// never.
  static constexpr size_t kMostMemory = size_t{64} << 20;

  explicit History(Document& document, size_t mostMemory = kMostMemory)
      : document_(document), mostMemory_(mostMemory) {}

  /// Makes a change that can be taken back, named for the menu ("erasing", as in "Undo erasing"). One that
  /// does not change the song, only cursor, selection, mode or file, makes no step. Changes of the same
  /// `merge`, unless it is empty, are one step as long as nothing else comes between them; they have to
  /// replace the same part of the song.
  void Do(std::string_view name, Change change, std::string_view merge = {});
  /// Forgets all steps.
  void Clear();
  /// The next step is one of its own, whatever its `merge`.
  void Seal() { merge_.clear(); }

  bool CanUndo() const { return !undo_.empty(); }
  bool CanRedo() const { return !redo_.empty(); }
  /// The name of the step that Undo takes back, or Redo makes again; empty for none.
  std::string_view UndoName() const { return CanUndo() ? std::string_view(undo_.back().name) : ""; }
  std::string_view RedoName() const { return CanRedo() ? std::string_view(redo_.back().name) : ""; }
  /// Elements, song information, cursor and selection are again as they were before the step (Undo), or when
  /// it was taken back (Redo); and so are mode and file where the step changed them. False when there is no
  /// step.
  bool Undo();
  bool Redo();

  /// What all the steps take, in bytes.
  size_t Memory() const { return memory_; }

 private:
  struct Step {
    std::string name;
    Change change;      ///< takes the step back, or makes it again
    size_t memory = 0;  ///< bytes that the step takes
  };

  void Keep(Step step, std::deque<Step>& steps);
  void Limit(std::deque<Step>& steps);
  void Forget(std::deque<Step>& steps);
  bool Move(std::deque<Step>& from, std::deque<Step>& to);

  Document& document_;
  size_t mostMemory_;
  std::deque<Step> undo_;  ///< the next to be taken back is the last
  std::deque<Step> redo_;  ///< the next to be made again is the last
  std::string merge_;
  size_t memory_ = 0;
};

}  // namespace trillomat
