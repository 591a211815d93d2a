#include "cli/trace.h"

#include <utility>

#include "automation/describe.h"
#include "automation/error.h"
#include "hosts/catalogue.h"

namespace foliant::cli {

using automation::Access;
using automation::Arguments;
using automation::describe;
using automation::ObjectPtr;
using automation::Value;

namespace {

using Note = TracedPlatform::Note;

/// Makes a call; what it raises is noted and raised.
template <class Call>
auto noting_failure(const Note& note, Call&& call) {
    try {
        return std::forward<Call>(call)();
    } catch (const automation::Error& error) {
        note("  failed: " + error.description());
        throw;
    }
}

class TracedObject : public automation::Object {
  public:
    TracedObject(ObjectPtr inner, std::string name, const Note& note)
        : inner_(std::move(inner)), name_(std::move(name)), note_(note) {}

    Value invoke(Access access, std::string_view member, const Arguments& arguments) override {
        const std::string path = name_ + "." + std::string(member);
        const bool sets = access == Access::set || access == Access::set_reference;
        if (sets) note_(path + " = " + describe(arguments));
        if (access == Access::call) note_(path + "(" + describe(arguments) + ")");
        const Value answer =
            noting_failure(note_, [&] { return inner_->invoke(access, member, unwrapped(arguments)); });
        if (access == Access::get && !answer.holds<ObjectPtr>()) note_(path + " -> " + describe(answer));
        return wrapped(answer, member);
    }

    std::unique_ptr<automation::Subscription> subscribe(automation::EventSink& sink) override {
        return inner_->subscribe(sink);
    }

    std::unique_ptr<automation::Enumeration> enumerate() override {
        note_("enumerate " + name_);
        return std::make_unique<Items>(inner_->enumerate(), name_, note_);
    }

  private:
    class Items : public automation::Enumeration {
      public:
        Items(std::unique_ptr<Enumeration> inner, std::string name, const Note& note)
            : inner_(std::move(inner)), name_(std::move(name)), note_(note) {}
        std::optional<Value> next() override {
            auto item = inner_->next();
            if (!item) return item;
            const auto* object = item->if_holds<ObjectPtr>();
            if (object == nullptr || *object == nullptr) return item;
            return Value(ObjectPtr(std::make_shared<TracedObject>(*object, name_ + ".Item", note_)));
        }

      private:
        std::unique_ptr<Enumeration> inner_;
        std::string name_;
        const Note& note_;
    };

    /// The objects that an engine made, where the caller hands ours back to it.
    static Arguments unwrapped(Arguments arguments) {
        for (automation::Argument& argument : arguments) {
            const auto* object = argument.value.if_holds<ObjectPtr>();
            if (object == nullptr) continue;
            if (const auto* traced = dynamic_cast<const TracedObject*>(object->get())) {
                argument.value = Value(traced->inner_);
            }
        }
        return arguments;
    }

    Value wrapped(const Value& answer, std::string_view member) const {
        const auto* object = answer.if_holds<ObjectPtr>();
        if (object == nullptr || *object == nullptr) return answer;
        // What is opened is a document.
        const std::string kind(member == "Open" ? "Document" : member);
        const std::string name = name_.substr(0, name_.find('.')) + "." + kind;
        return Value(ObjectPtr(std::make_shared<TracedObject>(*object, name, note_)));
    }

    ObjectPtr inner_;
    std::string name_;
    const Note& note_;
};

class TracedText : public platform::TextFile {
  public:
    TracedText(std::unique_ptr<TextFile> inner, std::string path, const Note& note)
        : inner_(std::move(inner)), path_(std::move(path)), note_(note) {}
    void write_line(std::string_view line) override {
        note_("write " + path_ + ": " + std::string(line));
        inner_->write_line(line);
    }
    void close() override {
        note_("close " + path_);
        inner_->close();
    }

  private:
    std::unique_ptr<TextFile> inner_;
    std::string path_;
    const Note& note_;
};

class TracedFiles : public platform::Files {
  public:
    TracedFiles(platform::Files& inner, const Note& note) : inner_(inner), note_(note) {}
    char separator() const noexcept override { return inner_.separator(); }
    std::int64_t length(const std::string& path) override {
        try {
            const std::int64_t length = inner_.length(path);
            note_("length " + path + " -> " + std::to_string(length));
            return length;
        } catch (const automation::Error&) {
            note_("length " + path + " -> not found");
            throw;
        }
    }
    bool exists_in_current_folder(const std::string& name) override {
        return inner_.exists_in_current_folder(name);
    }
    void remove(const std::string& path) override {
        note_("delete " + path);
        noting_failure(note_, [&] { inner_.remove(path); });
    }
    void make_folder(const std::string& path) override {
        note_("make folder " + path);
        noting_failure(note_, [&] { inner_.make_folder(path); });
    }
    std::unique_ptr<platform::TextFile> create_text(const std::string& path,
                                                    platform::TextPurpose purpose) override {
        note_("create text file " + path);
        return noting_failure(note_, [&] {
            return std::make_unique<TracedText>(inner_.create_text(path, purpose), path, note_);
        });
    }
    std::unique_ptr<platform::Listing> list(const std::string& pattern) override {
        note_("list " + pattern);
        return noting_failure(note_, [&] { return inner_.list(pattern); });
    }

  private:
    platform::Files& inner_;
    const Note& note_;
};

class TracedClock : public platform::Clock {
  public:
    TracedClock(Clock& inner, const Note& note) : inner_(inner), note_(note) {}
    void sleep(std::uint32_t milliseconds) override {
        note_("sleep " + std::to_string(milliseconds) + " ms");
        inner_.sleep(milliseconds);
    }
    void settle(std::uint32_t milliseconds) override { inner_.settle(milliseconds); }
    float seconds_since_midnight() override { return inner_.seconds_since_midnight(); }
    std::uint64_t random_seed() override { return inner_.random_seed(); }
    void pump_messages() override { inner_.pump_messages(); }
    void pump_while_waiting() override { inner_.pump_while_waiting(); }

  private:
    Clock& inner_;
    const Note& note_;
};

class TracedWindows : public platform::WindowManager {
  public:
    TracedWindows(WindowManager& inner, const Note& note) : inner_(inner), note_(note) {}
    platform::WindowHandle find_window(const std::string& caption) override {
        note_("find window \"" + caption + "\"");
        return inner_.find_window(caption);
    }
    void close_window(platform::WindowHandle window, const std::string& text) override {
        note_("close window");
        inner_.close_window(window, text);
    }
    void type_text(const std::string& text) override {
        note_("type \"" + text + "\"");
        inner_.type_text(text);
    }
    void press_enter() override {
        note_("press Enter");
        inner_.press_enter();
    }
    void message_box(const std::string& prompt, const std::string& title, std::uint32_t style) override {
        note_("message box \"" + prompt + "\", title \"" + title + "\"");
        inner_.message_box(prompt, title, style);
    }

  private:
    WindowManager& inner_;
    const Note& note_;
};

class TracedPrograms : public platform::Programs {
  public:
    TracedPrograms(Programs& inner, const Note& note) : inner_(inner), note_(note) {}
    void start(const std::string& command_line, platform::WindowStyle style) override {
        note_("start " + command_line);
        noting_failure(note_, [&] { inner_.start(command_line, style); });
    }

  private:
    Programs& inner_;
    const Note& note_;
};

class TracedServers : public platform::Servers {
  public:
    TracedServers(Servers& inner, const Note& note) : inner_(inner), note_(note) {}
    ObjectPtr create(std::string_view class_name) override {
        const auto found = hosts::find_class(class_name);
        // A class identifier says nothing to a reader.
        const std::string name(class_name.starts_with('{') && found.host != nullptr ? found.host->name
                                                                                    : class_name);
        note_("create " + name);
        return noting_failure(note_, [&]() -> ObjectPtr {
            return std::make_shared<TracedObject>(inner_.create(class_name), name, note_);
        });
    }

  private:
    Servers& inner_;
    const Note& note_;
};

}  // namespace

struct TracedPlatform::Ports {
    Ports(const platform::Platform& inner, Note told)
        : note(std::move(told)),
          files(inner.files, note),
          clock(inner.clock, note),
          windows(inner.windows, note),
          programs(inner.programs, note),
          servers(inner.servers, note) {}

    Note note;
    TracedFiles files;
    TracedClock clock;
    TracedWindows windows;
    TracedPrograms programs;
    TracedServers servers;
};

TracedPlatform::TracedPlatform(const platform::Platform& inner, Note note)
    : ports_(std::make_unique<Ports>(inner, std::move(note))), platform_{inner.registry,   ports_->files,
                                                                         ports_->clock,    ports_->windows,
                                                                         ports_->programs, inner.shell,
                                                                         ports_->servers,  inner.printers} {}

TracedPlatform::~TracedPlatform() = default;

}  // namespace foliant::cli
