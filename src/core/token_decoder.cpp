#include "core/token_decoder.h"

#include "core/noticing_log.h"

namespace trillomat {

TokenDecoder::TokenDecoder(FormatMode mode, const TokenDefaults& defaults, const ByteMap& spelling,
                           size_t tokens, const Services& services)
    : mode_(mode),
      defaults_(defaults),
      rules_(mode, defaults),
      spelling_(spelling),
      known_(services.tokens != nullptr ? *services.tokens : own_.emplace()),
      log_(services.log) {
  known_.Expect(tokens);
}

const DecodedToken& TokenDecoder::DecodeAnew(const CutToken& token, Log& log) {
  last_.element = Decode(spelling_(token.Text()), mode_, defaults_, log);
  last_.understood = IsUnderstood(last_.element);
  last_.refused = last_.element.Command() == kRefusedToken;
  return last_;
}

const DecodedToken& TokenDecoder::DecodeFirst(const CutToken& token) {
  NoticingLog noticing(log_);
  const DecodedToken& decoded = DecodeAnew(token, noticing);
  return noticing.Noticed() ? decoded : known_.Keep({token.Word(), rules_.Word()}, decoded);
}

}  // namespace trillomat
