// Holds a flag set for as long as it lives.
#pragma once

namespace trillomat {

class FlagSet {
 public:
  explicit FlagSet(bool& flag) : flag_(flag) { flag_ = true; }
  FlagSet(const FlagSet&) = delete;
  FlagSet& operator=(const FlagSet&) = delete;
  ~FlagSet() { flag_ = false; }

 private:
  bool& flag_;
};

}  // namespace trillomat
