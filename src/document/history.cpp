#include "document/history.h"

#include <algorithm>
#include <utility>

namespace trillomat {
namespace {

size_t MemoryOf(const SongInfo& info) {
  return sizeof(info) + info.name.capacity() + info.composer.capacity() + info.style.capacity() +
         info.volume.capacity() + info.version.capacity() + info.format.capacity();
}

// What the text of an element takes on the heap.
size_t MemoryOf(const Element& element) {
  const size_t length = std::max(element.Note().size(), element.Command().size());
  return length > ShortText::kInPlace ? length : 0;
}

size_t MemoryOf(const Change& change) {
  size_t memory = change.inserted.capacity() * sizeof(Element) + change.octaves.capacity() * sizeof(int16_t) +
                  (change.info ? MemoryOf(*change.info) : 0);
  for (const Element& element : change.inserted) memory += MemoryOf(element);
  return memory;
}

}  // namespace

void History::Do(std::string_view name, Change change, std::string_view merge) {
  const uint64_t before = document_.SongNumber();
  Change back = document_.Apply(std::move(change));
  if (document_.SongNumber() == before) return;
  while (CanRedo()) Forget(redo_);
  const bool merged = !merge.empty() && merge == merge_ && CanUndo();
  merge_ = merge;
  if (!merged) Keep({.name = std::string(name), .change = std::move(back)}, undo_);
  Limit(undo_);
}

void History::Clear() {
  while (CanUndo()) Forget(undo_);
  while (CanRedo()) Forget(redo_);
  Seal();
}

bool History::Undo() { return Move(undo_, redo_); }

bool History::Redo() { return Move(redo_, undo_); }

void History::Keep(Step step, std::deque<Step>& steps) {
  step.change.inserted.shrink_to_fit();
  step.memory = sizeof(step) + MemoryOf(step.change);
  memory_ += step.memory;
  steps.push_back(std::move(step));
}

void History::Limit(std::deque<Step>& steps) {
  while (memory_ > mostMemory_ && steps.size() > 1) Forget(steps);
}

// Forgets the step that would be reached last.
void History::Forget(std::deque<Step>& steps) {
  memory_ -= steps.front().memory;
  steps.pop_front();
}

bool History::Move(std::deque<Step>& from, std::deque<Step>& to) {
  if (from.empty()) return false;
  Step step = std::move(from.back());
  from.pop_back();
  memory_ -= step.memory;
  step.change = document_.Apply(std::move(step.change));
  Keep(std::move(step), to);
  Limit(to);
  Limit(from);
  Seal();
  return true;
}

}  // namespace trillomat
