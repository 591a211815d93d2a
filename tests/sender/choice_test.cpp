#include "sender/choice.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "sender/desktop.h"

namespace foliant::sender::test {
namespace {

/// Which control the command picks in the dialog: its place from 1 in tab order, 0 for none.
std::size_t pick(const std::string& tail, const Dialog& dialog) {
    Desktop desktop;
    const std::vector<Control> controls = desktop.controls(desktop.show(dialog));
    const auto chosen = choose(parse(tail), controls);
    for (std::size_t i = 0; chosen && i < controls.size(); ++i)
        if (controls[i].id == chosen->id) return i + 1;
    return 0;
}

constexpr auto enter = "x~Edit~t~0~0~";
constexpr auto enter_rich = "x~RichEdit20W~t~0~0~";
constexpr auto press = "x~Button~~0~0~";
constexpr auto tick = "x~Button~{LM}~0~1~";
constexpr auto dismiss = "x~Button~{LME}~0~1~";
constexpr auto enter_option = "password security - settings~Edit~t^1~0~1~";

TEST(Choice, TakesTheFirstEditThatTakesInput) {
    EXPECT_EQ(pick(enter, Dialog("").button("OK").disabled_edit().edit().edit()), 3U);
    EXPECT_EQ(pick(enter, Dialog("").button("OK")), 0U);
    EXPECT_EQ(pick(enter, Dialog("").disabled_edit()), 0U);
}

TEST(Choice, PassesOverWhatIsNotShown) {
    EXPECT_EQ(pick(enter, Dialog("").edit().hidden().edit()), 2U);
    EXPECT_EQ(pick(tick, Dialog("").box("Open").hidden().box("Open")), 2U);
    EXPECT_EQ(pick(press, Dialog("").default_button("OK").hidden()), 0U);
}

TEST(Choice, PrefersTheEditThatHasTheFocus) {
    EXPECT_EQ(pick(enter, Dialog("").edit().edit().focus().edit()), 2U);
    EXPECT_EQ(pick(enter, Dialog("").edit().disabled_edit().focus()), 1U);
    EXPECT_EQ(pick(enter, Dialog("").edit().button("OK").focus()), 1U);
}

TEST(Choice, HeedsTheClassInAnyCase) {
    EXPECT_EQ(pick(enter_rich, Dialog("").edit().edit("RICHEDIT20W")), 2U);
    EXPECT_EQ(pick(enter, Dialog("").edit("RichEdit20W").edit("EDIT")), 2U);
}

TEST(Choice, PressesTheDefaultButtonOnly) {
    EXPECT_EQ(pick(press, Dialog("").button("Help").default_button("OK")), 2U);
    EXPECT_EQ(pick(press, Dialog("").button("OK")), 0U);
}

TEST(Choice, DismissesANoticeByItsOnlyButton) {
    EXPECT_EQ(pick(dismiss, Dialog("").button("Help").default_button("OK")), 2U);
    EXPECT_EQ(pick(dismiss, Dialog("").group("g").box("Do not show again").button("OK")), 3U);
    EXPECT_EQ(pick(dismiss, Dialog("").button("Yes").button("No")), 0U);
}

TEST(Choice, TicksTheOptionThatSpeaksOfOpening) {
    EXPECT_EQ(pick(tick, Dialog("").group("Open").box("Restrict editing").box("Required to &Open")), 3U);
    EXPECT_EQ(pick(tick, Dialog("").box("Restrict").box("Needed to o&pen")), 2U);
    EXPECT_EQ(pick(tick, Dialog("").button("Open").box("Kennwort").box("Rechte")), 2U);
    EXPECT_EQ(pick(tick, Dialog("").box("Open", true)), 1U);
    EXPECT_EQ(pick(tick, Dialog("").button("Open")), 0U);
}

TEST(Choice, EntersThePasswordOfTheOptionOnceThatIsTicked) {
    EXPECT_EQ(pick(enter_option, password_settings(false)), 0U);
    EXPECT_EQ(pick(enter_option, password_settings(true)), 3U);
    EXPECT_EQ(pick(enter_option, Dialog("").box("To open", false).edit()), 0U);
}

TEST(Choice, NeverEntersThePasswordOfAnotherOption) {
    const auto settings = [](bool open_ticked) {
        return Dialog("").box("Restrict", true).edit_of_box().box("To open", open_ticked).edit_of_box();
    };
    EXPECT_EQ(pick(enter_option, settings(false)), 0U);
    EXPECT_EQ(pick(enter_option, settings(true)), 4U);
    EXPECT_EQ(pick(enter_option, Dialog("").box("To open", true).disabled_edit().edit()), 0U);
}

TEST(Choice, EntersNoPasswordWithoutAnOption) {
    EXPECT_EQ(pick(enter_option, Dialog("").edit()), 0U);
}

}  // namespace
}  // namespace foliant::sender::test
