#include "acrobat/pages.h"

#include <gtest/gtest.h>
#include <limits>

#include "support/staged_session.h"

namespace foliant::acrobat {
namespace {

using automation::Value;

TEST(PageIndex, OfACallersFirstPageIsZero) {
    EXPECT_EQ(page_index(1), 0);
    EXPECT_EQ(page_index(12), 11);
    EXPECT_EQ(page_index(std::numeric_limits<std::int32_t>::max()),
              std::numeric_limits<std::int32_t>::max() - 1);
}

TEST(PageIndex, OfNumbersBelowOneThereIsNone) {
    for (const std::int32_t number : {0, -1, std::numeric_limits<std::int32_t>::min()})
        EXPECT_EQ(page_index(number), std::nullopt);
}

class Pages : public tests::StagedSession {
  protected:
    Value document_of(const Value& pages) {
        stage.answer("AcroExch.PDDoc.GetNumPages", pages);
        return stage.make_object("AcroExch.PDDoc");
    }
};

TEST_F(Pages, AreCountedByTheDocumentWhateverTypeItAnswersIn) {
    EXPECT_EQ(page_count(document_of(std::int16_t{3})), 3);
    EXPECT_EQ(page_count(document_of(std::int32_t{70000})), 70000);
    EXPECT_EQ(last_page(document_of(std::int32_t{70000})), 69999);
    EXPECT_EQ(last_page(document_of(std::int32_t{0})), -1);
}

TEST_F(Pages, AreAskedForOncePerCount) {
    const Value document = document_of(std::int32_t{3});
    last_page(document);
    expect_journal("AcroExch.PDDoc.GetNumPages()");
}

TEST_F(Pages, InSixteenBitsOverflowWhereTheNumberThatIsHeldDoesNotFit) {
    EXPECT_EQ(page_count_in_16_bits(document_of(std::int32_t{32767})), 32767);
    EXPECT_EQ(last_page_in_16_bits(document_of(std::int32_t{32768})), 32767);
    EXPECT_EQ(last_page_in_16_bits(document_of(std::int32_t{0})), -1);
    const Value many = document_of(std::int32_t{32768});
    const Value more = document_of(std::int32_t{32769});
    stage.clear_journal();
    run([&] { page_count_in_16_bits(many); });
    run([&] { last_page_in_16_bits(more); });
    expect_journal(R"(
        AcroExch.PDDoc.GetNumPages()
        raise 6 from : Overflow
        AcroExch.PDDoc.GetNumPages()
        raise 6 from : Overflow
    )");
}

}  // namespace
}  // namespace foliant::acrobat
