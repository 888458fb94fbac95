// One file operation at a time: opening, saving, renaming, deleting, importing, exporting and recovering
// each hold the token for as long as they last, because all of them let events run.
#pragma once

#include <memory>
#include <optional>

namespace trillomat {

class FileOperations {
 public:
  /// Stands for an operation that runs, which ends when this does. Can be moved, not copied.
  class Token {
   private:
    friend class FileOperations;
    struct End {
      void operator()(bool* runs) const { *runs = false; }
    };
    explicit Token(bool& runs) : runs_(&runs) { runs = true; }

    std::unique_ptr<bool, End> runs_;
  };

  FileOperations() = default;
  FileOperations(const FileOperations&) = delete;
  FileOperations& operator=(const FileOperations&) = delete;

  /// Begins an operation; nothing while another one runs. This object has to outlive the token.
  std::optional<Token> Begin() { return runs_ ? std::nullopt : std::optional(Token(runs_)); }
  bool Runs() const { return runs_; }

 private:
  bool runs_ = false;
};

}  // namespace trillomat
