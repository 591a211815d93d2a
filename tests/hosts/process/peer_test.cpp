#include "hosts/process/peer.h"

#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <limits>
#include <system_error>
#include <unistd.h>

#include "automation/describe.h"
#include "automation/error.h"
#include "hosts/process/partners.h"
#include "hosts/record_object.h"
#include "hosts/settled_object.h"

namespace foliant::hosts::process {
namespace {

using automation::Access;
using automation::Arguments;
using automation::Array;
using automation::named;
using automation::ObjectPtr;
using automation::Value;
using test::failure_of;
using test::Partners;
using test::Scripted;

/// The other side's object does what `body` says.
std::function<void(Channel)> serving(Scripted::Body body) {
    return
        [body](Channel channel) { test::serve_object(std::move(channel), std::make_shared<Scripted>(body)); };
}

Value first(const Arguments& arguments) {
    return arguments.at(0).value;
}

TEST(Peer, CarriesValuesOfEveryKindThereAndBack) {
    Partners partners(serving([](Access, std::string_view, const Arguments& given) { return first(given); }));
    const Value object = partners.object();
    const std::vector<Value> values = {
        {},
        automation::Missing(),
        automation::Null(),
        true,
        false,
        std::int16_t{-7},
        std::numeric_limits<std::int32_t>::min(),
        1.5F,
        -2.25,
        "",
        std::string("naïve\0café", 12),
        std::string(300000, 'x'),
        ObjectPtr(),
        Array{.lower_bound = 1, .items = {"a", "b"}, .element = Array::Element::text},
        Array{.lower_bound = -3, .items = {std::int32_t{5}, Array{.items = {2.0}}, automation::Missing()}},
        Array{},
    };
    for (const Value& value : values)
        EXPECT_EQ(object.call("Same", {value}), value) << describe(value).substr(0, 100);
}

TEST(Peer, CarriesAccessNamesAndOrder) {
    Partners partners(serving([](Access access, std::string_view member, const Arguments& given) -> Value {
        return std::to_string(static_cast<int>(access)) + " " + std::string(member) + "(" + describe(given) +
               ")";
    }));
    const Value object = partners.object();
    EXPECT_EQ(object.get("Sections", {std::int16_t{1}}), Value("0 Sections(Integer(1))"));
    EXPECT_EQ(object.call("Open", {"a.doc", named("PasswordDocument", "x"), named("readOnly", true)}),
              Value("1 Open(\"a.doc\", PasswordDocument:=\"x\", readOnly:=True)"));
}

/// Hands out objects with two settled texts each, and counts the calls that reach it.
Value page_of_words(int& calls, std::string_view member, std::size_t size) {
    if (member == "Calls") return std::int32_t{calls};
    ++calls;
    auto words = std::make_shared<SettledObject>("Test");
    words->settle("Count", std::int32_t{2});
    words->settle_texts("Word", {std::string(size, 'x') + "two",
                                 {static_cast<std::uint32_t>(size), static_cast<std::uint32_t>(size) + 3}});
    words->add_method("Moving", {}, [&calls](const Bound&) { return ++calls; });
    return ObjectPtr(words);
}

TEST(Peer, AsksForSettledResultsOnlyOnce) {
    int calls = 0;
    Partners partners(serving([&calls](Access, std::string_view member, const Arguments&) {
        return page_of_words(calls, member, 3);
    }));
    const Value object = partners.object();
    const Value words = object.call("Page");
    EXPECT_EQ(words.call("Count"), Value(std::int32_t{2}));
    EXPECT_EQ(words.call("Word", {std::int32_t{0}}), Value("xxx"));
    EXPECT_EQ(words.call("word", {std::int32_t{1}}), Value("two"));
    kill(partners.process(), SIGSTOP);  // whoever asks it now waits for ever
    EXPECT_EQ(words.call("Word", {std::int32_t{1}}), Value("two"));
    kill(partners.process(), SIGCONT);
    EXPECT_EQ(words.call("Moving"), Value(std::int32_t{2}));
    EXPECT_EQ(failure_of([&] { words.call("Word", {std::int32_t{2}}); }).substr(0, 2), "9 ");
}

TEST(Peer, SendsAlongASettledObjectOfASettledObject) {
    Partners partners(serving([](Access, std::string_view, const Arguments&) -> Value {
        auto size = std::make_shared<SettledObject>("Test");
        size->settle("x", std::int32_t{612});
        auto page = std::make_shared<SettledObject>("Test");
        page->settle("GetSize", ObjectPtr(size));
        return ObjectPtr(page);
    }));
    const Value page = partners.object().call("Page");
    kill(partners.process(), SIGSTOP);
    EXPECT_EQ(page.call("GetSize").get("x"), Value(std::int32_t{612}));
    kill(partners.process(), SIGCONT);
    EXPECT_EQ(failure_of([&] { page.call("GetSize").get("y"); }).substr(0, 4), "438 ");
}

/// Hands out a record with two numbers, and tells what is in one that it is given.
Value record_keeper(std::string_view member, const Arguments& given) {
    if (member == "Make")
        return ObjectPtr(
            std::make_shared<RecordObject>("Test", std::vector<std::string_view>{"Left", "Top"}));
    const auto* const record =
        dynamic_cast<const RecordObject*>(given.at(0).value.if_holds<ObjectPtr>()->get());
    return record == nullptr
               ? Value("none")
               : Value(std::to_string(record->number(0)) + " " + std::to_string(record->number(1)));
}

TEST(Peer, HasTheNumbersOfARecordWhereTheyAreUsed) {
    Partners partners(serving([](Access, std::string_view member, const Arguments& given) {
        return record_keeper(member, given);
    }));
    const Value keeper = partners.object();
    const Value record = keeper.call("Make");
    kill(partners.process(), SIGSTOP);
    record.set("left", std::int16_t{5});
    EXPECT_EQ(record.get("Left"), Value(5.0));
    EXPECT_EQ(record.get("Top"), Value(0.0));
    EXPECT_EQ(failure_of([&] { record.set("Top", "high"); }).substr(0, 3), "13 ");
    kill(partners.process(), SIGCONT);
    EXPECT_EQ(keeper.call("Tell", {record}), Value("5.000000 0.000000"));
    record.set("Top", 7.5);
    EXPECT_EQ(keeper.call("Tell", {record}), Value("5.000000 7.500000"));
    EXPECT_EQ(failure_of([&] { record.get("Right"); }).substr(0, 4), "438 ");
}

TEST(Peer, AsksForResultsThatAreTooManyToSendAlong) {
    int calls = 0;
    Partners partners(serving([&calls](Access, std::string_view member, const Arguments&) {
        return page_of_words(calls, member, 20U << 20U);
    }));
    const Value words = partners.object().call("Page");
    EXPECT_EQ(words.call("Word", {std::int32_t{1}}), Value("two"));
}

TEST(Peer, ThrowsTheOthersErrors) {
    Partners partners(serving([](Access, std::string_view member, const Arguments&) -> Value {
        if (member == "Word") throw automation::Error(5174, "Microsoft Word", "It is not there.");
        if (member == "File")
            throw std::filesystem::filesystem_error("x", "/there",
                                                    std::error_code(ENOSPC, std::generic_category()));
        throw std::out_of_range("too far");
    }));
    const Value object = partners.object();
    try {
        object.call("Word");
        FAIL();
    } catch (const automation::Error& error) {
        EXPECT_EQ(error.number(), 5174);
        EXPECT_EQ(error.source(), "Microsoft Word");
        EXPECT_EQ(error.description(), "It is not there.");
    }
    try {
        object.call("File");
        FAIL();
    } catch (const std::filesystem::filesystem_error& error) {
        EXPECT_EQ(error.path1(), "/there");
        EXPECT_EQ(error.code(), std::errc::no_space_on_device);
    }
    EXPECT_EQ(failure_of([&] { object.call("Other"); }), "51 too far");
}

TEST(Peer, GivesTheSameObjectTheSameProxy) {
    Partners partners([](Channel channel) {
        const auto inner = std::make_shared<Scripted>(
            [](Access, std::string_view, const Arguments&) -> Value { return "inner"; });
        test::serve_object(std::move(channel), std::make_shared<Scripted>([&](Access, std::string_view member,
                                                                              const Arguments& given) {
                               if (member == "IsInner") return Value(first(given) == Value(inner));
                               return Value(inner);
                           }));
    });
    const Value object = partners.object();
    const Value inner = object.get("Inner");
    EXPECT_EQ(inner, object.get("Inner"));
    EXPECT_EQ(inner.get("Name"), Value("inner"));
    EXPECT_EQ(object.call("IsInner", {inner}), Value(true));
}

TEST(Peer, LetsGoOfTheOthersObjects) {
    Partners partners([](Channel channel) {
        const auto outer =
            std::make_shared<Scripted>([](Access, std::string_view member, const Arguments&) -> Value {
                if (member == "Count") return static_cast<std::int32_t>(automation::Object::live_objects());
                return std::make_shared<Scripted>(
                    [](Access, std::string_view, const Arguments&) { return Value(); });
            });
        test::serve_object(std::move(channel), outer);
    });
    const Value object = partners.object();
    const Value before = object.get("Count");
    {
        const Value one = object.get("New");
        const Value two = object.get("New");
        EXPECT_NE(object.get("Count"), before);
    }
    EXPECT_EQ(object.get("Count"), before);
}

TEST(Peer, AnswersWhileItWaits) {
    // The other side calls back an object of this side, which calls the other side again, and so on down.
    Partners partners(serving([](Access, std::string_view, const Arguments& given) -> Value {
        const auto depth = *given.at(1).value.if_holds<std::int32_t>();
        if (depth == 0) return "bottom";
        return first(given).call("Down", {depth - 1});
    }));
    const Value object = partners.object();
    std::shared_ptr<Scripted> mine;
    mine = std::make_shared<Scripted>([&](Access, std::string_view, const Arguments& given) -> Value {
        return object.call("Down", {mine, first(given)});
    });
    EXPECT_EQ(object.call("Down", {mine, std::int32_t{10}}), Value("bottom"));
}

TEST(Peer, DoesNotGoDownWithoutEnd) {
    Partners partners(serving(
        [](Access, std::string_view, const Arguments& given) -> Value { return first(given).call("Down"); }));
    const Value object = partners.object();
    std::shared_ptr<Scripted> mine;
    mine = std::make_shared<Scripted>(
        [&](Access, std::string_view, const Arguments&) -> Value { return object.call("Down", {mine}); });
    EXPECT_NE(failure_of([&] { object.call("Down", {mine}); }), "");
}

/// An object with one event.
class Ticker : public automation::Object {
  public:
    Value invoke(Access, std::string_view, const Arguments&) override {
        if (sink_ == nullptr) return "nobody listens";
        const std::vector<Value> arguments = {std::int32_t{3}, "three"};
        sink_->notify("Tick", arguments);
        return "told";
    }
    std::unique_ptr<automation::Subscription> subscribe(automation::EventSink& sink) override {
        struct Ending : automation::Subscription {
            explicit Ending(Ticker& ticker) : ticker_(ticker) {}
            ~Ending() override { ticker_.sink_ = nullptr; }
            Ticker& ticker_;
        };
        sink_ = &sink;
        return std::make_unique<Ending>(*this);
    }

  private:
    automation::EventSink* sink_ = nullptr;
};

struct NotingSink : automation::EventSink {
    void notify(std::string_view event, std::span<const Value> arguments) override {
        notes += std::string(event);
        for (const Value& argument : arguments)
            notes += " " + describe(argument);
        if (throws) throw automation::Error(5, "", "not now");
    }
    std::string notes;
    bool throws = false;
};

TEST(Peer, PassesNotificationsOnWhileTheCallRuns) {
    Partners partners(
        [](Channel channel) { test::serve_object(std::move(channel), std::make_shared<Ticker>()); });
    const Value object = partners.object();
    NotingSink sink;
    {
        const auto subscription = object.object().subscribe(sink);
        EXPECT_EQ(object.call("Go"), Value("told"));
        EXPECT_EQ(sink.notes, "Tick Long(3) \"three\"");
        sink.throws = true;
        EXPECT_EQ(failure_of([&] { object.call("Go"); }), "5 not now");
    }
    EXPECT_EQ(object.call("Go"), Value("nobody listens"));
}

TEST(Peer, SaysThatAnObjectHasNoEvents) {
    Partners partners(serving([](Access, std::string_view, const Arguments&) { return Value(); }));
    NotingSink sink;
    EXPECT_EQ(failure_of([&] { partners.object().object().subscribe(sink); }).substr(0, 4), "459 ");
}

TEST(Peer, NoticesThatTheOtherDiesDuringACall) {
    Partners partners(serving([](Access, std::string_view, const Arguments&) -> Value { _exit(3); }));
    const Value object = partners.object();
    EXPECT_EQ(failure_of([&] { object.call("Die"); }), "462 gone during Die");
    EXPECT_EQ(failure_of([&] { object.call("Again"); }), "462 gone during Again");
}

TEST(Peer, TakesNoMessageThatIsNone) {
    const std::vector<std::string> messages = {
        std::string("\xFF"),                                    // of no kind
        std::string("\x06\x63", 2),                             // a value of no kind
        std::string("\x06\x08\xFF\xFF\xFF\x7F", 6),             // a text without its end
        std::string("\x06\x0B\x07\0\0\0", 6),                   // an object that this side never gave away
        std::string("\x06\x0C\0\0\0\0\0\xFF\xFF\0\0", 11),      // an array without its items
        std::string("\x00\x01\0\0\0\x01\0\0\0\0\0\0\0\0", 14),  // a call of an object that is not there
        std::string("\x06\x03\x07", 3),                         // neither true nor false
        "",
    };
    for (const std::string& message : messages) {
        Partners partners([&](Channel channel) {
            channel.receive();
            for (const char byte : {static_cast<char>(message.size()), '\0', '\0', '\0'})
                write(channel.descriptor(), &byte, 1);
            write(channel.descriptor(), message.data(), message.size());
            pause();
        });
        EXPECT_EQ(failure_of([&] { partners.object(); }), "462 garbled during ")
            << testing::PrintToString(message);
    }
}

TEST(Peer, TakesNoMessageOfAnyLength) {
    Partners partners([](Channel channel) {
        channel.receive();
        write(channel.descriptor(), "\xFF\xFF\xFF\xFF", 4);
        pause();
    });
    EXPECT_EQ(failure_of([&] { partners.object(); }), "462 garbled during ");
}

TEST(Peer, TellsWhichTextsItSends) {
    std::string sent;
    Peer::Manners manners;
    manners.sent = [&](const std::string& text) { sent += text + ";"; };
    Partners partners(serving([](Access, std::string_view, const Arguments&) -> Value { return "back"; }),
                      std::move(manners));
    partners.object().call("Open", {"a.doc", Array{.items = {"b.doc"}}, std::int32_t{1}});
    EXPECT_EQ(sent, "a.doc;b.doc;");
}

TEST(Peer, AsksBeforeAFailureIsThrown) {
    Peer::Manners manners;
    manners.failed = [](const std::string& member) {
        throw automation::Error(7, "", "short of memory in " + member);
    };
    Partners partners(serving([](Access, std::string_view, const Arguments&) -> Value {
                          throw automation::Error(5792, "", "It is damaged.");
                      }),
                      std::move(manners));
    EXPECT_EQ(failure_of([&] { partners.object().call("Open"); }), "7 short of memory in Open");
}

}  // namespace
}  // namespace foliant::hosts::process
