#include <array>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>

#include "core/members.h"
#include "windows/com/component.h"

namespace foliant::com {
namespace {

/// Random arguments of every shape that automation allows, and of many that it does not. What a reference
/// points to lives as long as this.
class Arguments {
  public:
    explicit Arguments(std::mt19937& random) : random_(random) {}
    ~Arguments() {
        for (VARIANT& variant : owned_)
            VariantClear(&variant);
    }

    VARIANT any() {
        VARIANT variant = pick(4) == 0 ? plain() : by_reference();
        if (pick(6) == 0) variant = plain();
        return variant;
    }
    unsigned pick(unsigned choices) { return random_() % choices; }

  private:
    VARIANT plain() {
        static constexpr std::array<VARTYPE, 20> types{
            VT_EMPTY, VT_NULL, VT_I2,      VT_I4, VT_R4,  VT_R8,  VT_CY,  VT_DATE, VT_BSTR, VT_DISPATCH,
            VT_ERROR, VT_BOOL, VT_UNKNOWN, VT_I1, VT_UI1, VT_UI2, VT_UI4, VT_I8,   VT_UI8,  VT_DECIMAL};
        VARIANT variant{};
        if (pick(8) == 0) return keep(array());
        variant.vt = types[pick(types.size())];
        if (variant.vt == VT_BSTR) {
            variant.bstrVal = text();
        } else if (variant.vt != VT_DISPATCH && variant.vt != VT_UNKNOWN && variant.vt != VT_DECIMAL) {
            variant.llVal = pick(2) == 0 ? static_cast<LONGLONG>(random_()) << pick(32)
                                         : static_cast<LONGLONG>(pick(3)) - 1;
            if (variant.vt == VT_ERROR && pick(2) == 0) variant.scode = DISP_E_PARAMNOTFOUND;
        }
        return keep(variant);
    }
    VARIANT by_reference() {
        plain();
        VARIANT& target = owned_.back();
        if (pick(10) == 0) return reference(static_cast<VARTYPE>(target.vt & VT_TYPEMASK), nullptr);
        if (pick(2) == 0 || target.vt == VT_EMPTY || target.vt == VT_NULL || target.vt == VT_DECIMAL)
            return reference(VT_VARIANT, &target);
        return reference(target.vt, &target.llVal);
    }
    BSTR text() {
        std::wstring text;
        for (unsigned left = pick(12); left > 0; --left)
            text += static_cast<wchar_t>(pick(3) == 0 ? random_() : ' ' + pick(90));
        return pick(8) == 0 ? nullptr : SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    }
    VARIANT array() {
        VARIANT variant{};
        const std::array<VARTYPE, 4> types{VT_VARIANT, VT_BSTR, VT_I4, VT_UI1};
        const VARTYPE type = types[pick(4)];
        std::array<SAFEARRAYBOUND, 2> bounds{SAFEARRAYBOUND{pick(4), static_cast<LONG>(random_())}, {2, 0}};
        variant.vt = static_cast<VARTYPE>(VT_ARRAY | type);
        variant.parray = pick(10) == 0 ? nullptr : SafeArrayCreate(type, pick(8) == 0 ? 2 : 1, bounds.data());
        return variant;
    }
    VARIANT keep(const VARIANT& variant) {
        owned_.push_back(variant);
        return variant;
    }

    std::mt19937& random_;
    std::deque<VARIANT> owned_;
};

/// The current folder of the calls: a random text that is given for the folder of temporary files is made
/// there.
class PlaceToPlay {
  public:
    PlaceToPlay() : before_(std::filesystem::current_path()) {
        std::filesystem::create_directory(folder_);
        std::filesystem::current_path(folder_);
    }
    ~PlaceToPlay() {
        std::filesystem::current_path(before_);
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

  private:
    std::filesystem::path before_;
    std::filesystem::path folder_ = std::filesystem::temp_directory_path() / "foliant fuzz";
};

/// Random calls of one object, whatever becomes of them. No random text is the path of a file, so nothing
/// outside is changed. FOLIANT_FUZZ_CALLS asks for more, for example 1000000.
TEST(Invoke, SurvivesRandomArguments) {
    const char* asked = std::getenv("FOLIANT_FUZZ_CALLS");
    const int calls = asked != nullptr ? std::atoi(asked) : 200000;
    const PlaceToPlay place;
    const Component component;
    const auto object = component.create();
    std::mt19937 random(20240611);
    static constexpr std::array<WORD, 7> flags{1, 2, 3, 4, 8, 12, 0};
    for (int i = 0; i < calls; ++i) {
        Arguments arguments(random);
        const core::Member& member = core::members[arguments.pick(core::members.size())];
        std::array<VARIANT, 30> sent{};
        std::array<DISPID, 30> names{};
        const unsigned count = arguments.pick(static_cast<unsigned>(member.parameter_count) + 3);
        for (unsigned j = 0; j < count; ++j) {
            sent[j] = arguments.any();
            names[j] = static_cast<DISPID>(arguments.pick(30)) - 4;
        }
        DISPPARAMS parameters{sent.data(), names.data(), count,
                              arguments.pick(3) == 0 ? arguments.pick(count + 2) : 0};
        Variant result;
        EXCEPINFO failure{};
        object->Invoke(arguments.pick(50) == 0 ? static_cast<DISPID>(random()) : member.dispid, IID_NULL,
                       0x409, flags[arguments.pick(flags.size())],
                       arguments.pick(50) == 0 ? nullptr : &parameters,
                       arguments.pick(2) == 0 ? result.get() : nullptr,
                       arguments.pick(3) == 0 ? nullptr : &failure, nullptr);
        SysFreeString(failure.bstrSource);
        SysFreeString(failure.bstrDescription);
    }
    Outcome outcome;
    call(*object.get(), L"PrinterName", {}, outcome);
    EXPECT_EQ(outcome.code, S_OK);
}

}  // namespace
}  // namespace foliant::com
