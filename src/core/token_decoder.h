// Decode over many tokens: each distinct one is decoded once, because a melody says the same few again and
// again.
#pragma once

#include <optional>

#include "core/byte_map.h"
#include "core/services.h"
#include "core/token_cache.h"

namespace trillomat {

class TokenDecoder {
 public:
  /// `tokens`: about how many will come. `spelling` turns each into what Decode takes. A token that Decode
  /// logs about is decoded anew each time, so that each is logged.
  TokenDecoder(FormatMode mode, const TokenDefaults& defaults, const ByteMap& spelling, size_t tokens,
               const Services& services);
  TokenDecoder(const TokenDecoder&) = delete;
  TokenDecoder& operator=(const TokenDecoder&) = delete;

  /// What Decode gives for `token`; valid until the next call, or until events run.
  const DecodedToken& operator()(const CutToken& token) {
    if (token.Word() == CutToken::kNoWord) return DecodeAnew(token, log_);
    const DecodedToken* known = known_.Find({token.Word(), rules_.Word()});
    return known != nullptr ? *known : DecodeFirst(token);
  }

 private:
  const DecodedToken& DecodeAnew(const CutToken& token, Log& log);
  const DecodedToken& DecodeFirst(const CutToken& token);

  FormatMode mode_;
  TokenDefaults defaults_;
  TokenRules rules_;
  const ByteMap& spelling_;
  std::optional<TokenCache> own_;
  TokenCache& known_;
  DecodedToken last_;
  Log& log_;
};

}  // namespace trillomat
