#include "automation/value.h"

#include <gtest/gtest.h>

#include "automation/describe.h"
#include "automation/error.h"
#include "automation/object.h"

namespace foliant::automation {
namespace {

class Recorder : public Object {
  public:
    Value invoke(Access access, std::string_view member, const Arguments& arguments) override {
        last =
            std::to_string(static_cast<int>(access)) + " " + std::string(member) + " " + describe(arguments);
        return Value(std::int16_t{1});
    }
    std::string last;
};

TEST(Value, KeepsTypesApart) {
    EXPECT_NE(Value(std::int16_t{1}), Value(std::int32_t{1}));
    EXPECT_NE(Value(""), Value(Empty{}));
    EXPECT_NE(Value(Missing{}), Value(Empty{}));
    EXPECT_EQ(Value("a"), Value(std::string("a")));
    EXPECT_NE(Value(Array{0, {"a"}}), Value(Array{1, {"a"}}));
    EXPECT_EQ(Value(Array{1, {"a"}}), Value(Array{1, {"a"}}));
}

TEST(Value, SendsNamesAndArgumentsExactlyAsWritten) {
    const auto object = std::make_shared<Recorder>();
    const Value value(object);
    value.call("Open", {"a.doc", named("PasswordDocument", "x"), named("Copies", std::int16_t{2})});
    EXPECT_EQ(object->last, "1 Open \"a.doc\", PasswordDocument:=\"x\", Copies:=Integer(2)");
    value.set("DisplayAlerts", std::int16_t{0});
    EXPECT_EQ(object->last, "2 DisplayAlerts Integer(0)");
    EXPECT_EQ(value.get("Sections", {std::int16_t{1}}), Value(std::int16_t{1}));
    EXPECT_EQ(object->last, "0 Sections Integer(1)");
}

TEST(Value, UsingWhatIsNoObjectRaises424AndNothing91) {
    const auto number = [](const Value& value) {
        try {
            value.get("Anything");
        } catch (const Error& error) {
            return error.number();
        }
        return 0;
    };
    EXPECT_EQ(number(Value("text")), 424);
    EXPECT_EQ(number(Value(ObjectPtr())), 91);
}

TEST(Value, ArraysCheckTheirBounds) {
    const Array array{3, {"a", "b"}};
    EXPECT_EQ(array.upper_bound(), 4);
    EXPECT_EQ(array.at(4), Value("b"));
    EXPECT_THROW(array.at(2), Error);
    EXPECT_THROW(array.at(5), Error);
    EXPECT_EQ((Array{0, {}}.upper_bound()), -1);
}

TEST(Value, DescriptionsShowTheExactType) {
    EXPECT_EQ(describe(Value(Array{1, {"a", std::int32_t{2}, Missing{}}})),
              "(1 To 3){\"a\", Long(2), <missing>}");
    EXPECT_EQ(describe(Value(1.5F)), "Single(1.5)");
    EXPECT_EQ(describe(Value(ObjectPtr())), "Nothing");
    EXPECT_EQ(describe(Value(true)), "True");
}

TEST(Object, CountsTheLivingAndOffersNoEventsUnlessItHasSome) {
    const long before = Object::live_objects();
    {
        const auto object = std::make_shared<Recorder>();
        EXPECT_EQ(Object::live_objects(), before + 1);
        class Sink : public EventSink {
            void notify(std::string_view, std::span<const Value>) override {}
        } sink;
        EXPECT_THROW(object->subscribe(sink), Error);
    }
    EXPECT_EQ(Object::live_objects(), before);
}

TEST(Error, AnyExceptionBecomesANumberedOne) {
    const auto as_error = [](auto thrown) {
        try {
            throw thrown;
        } catch (...) {
            return current_error();
        }
    };
    EXPECT_EQ(as_error(std::bad_alloc()).number(), 7);
    EXPECT_EQ(as_error(std::runtime_error("odd")).description(), "odd");
    EXPECT_EQ(as_error(42).number(), 51);
    EXPECT_EQ(as_error(Error(RuntimeError::file_not_found)).description(), "File not found");
}

}  // namespace
}  // namespace foliant::automation
