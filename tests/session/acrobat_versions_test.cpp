#include "session/acrobat_versions.h"

#include <gtest/gtest.h>
#include <ostream>
#include <string>

#include "support/staged_session.h"

namespace foliant::session {
namespace {

/// What each question is answered for one version.
struct Answers {
    std::string version;
    bool newer_than_5;
    bool older_than_6;
    bool exactly_6_0;
};

void PrintTo(const Answers& answers, std::ostream* out) {
    *out << '"' << answers.version << '"';
}

class AcrobatVersions : public tests::StagedSession, public testing::WithParamInterface<Answers> {};

TEST_P(AcrobatVersions, EachQuestionHasItsOwnThreshold) {
    const Answers& expected = GetParam();
    register_acrobat(expected.version);
    EXPECT_EQ(acrobat_is_newer_than_5(session()), expected.newer_than_5);
    EXPECT_EQ(acrobat_is_5_or_older(session()), !expected.newer_than_5);
    EXPECT_EQ(acrobat_is_older_than_6(session()), expected.older_than_6);
    EXPECT_EQ(acrobat_is_exactly_6_0(session()), expected.exactly_6_0);
}

INSTANTIATE_TEST_SUITE_P(
    Versions, AcrobatVersions,
    testing::Values(Answers{"", false, true, false}, Answers{"Acrobat 7.0", false, true, false},
                    Answers{"4.05", false, true, false}, Answers{"5", false, true, false},
                    Answers{"5.0", false, true, false}, Answers{"5.05", true, true, false},
                    Answers{"5.99", true, true, false}, Answers{"6", true, false, false},
                    Answers{"6.0", true, false, true}, Answers{" 6.0", true, false, false},
                    Answers{"6.0 ", true, false, false}, Answers{"6.00", true, false, false},
                    Answers{"6.0.1", true, false, false}, Answers{"6.01", true, false, false},
                    Answers{"7.0 beta", true, false, false}, Answers{"10.1", true, false, false}));

}  // namespace
}  // namespace foliant::session
