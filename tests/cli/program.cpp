#include "cli/program.h"

namespace trillomat {

void ProgramTest::ExpectEach(const std::vector<Case>& cases, const std::string& command) const {
  for (const Case& example : cases) {
    SCOPED_TRACE(example.arguments);
    const Ran ran = Run(command + example.arguments, example.input);
    EXPECT_EQ(ran.status, example.status);
    EXPECT_THAT(ran.out, example.out);
    EXPECT_THAT(ran.err, example.err);
  }
}

}  // namespace trillomat
