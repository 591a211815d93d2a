#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "automation/error.h"
#include "automation/object.h"
#include "automation/value.h"
#include "platform/platform.h"

/// A whole outside world that is recorded and scripted: for tests, and for showing what a call would do
/// without doing any of it. Knows the ports.
namespace foliant::platform::stage {

class Stage;
class StageObject;

/// What a member of a scripted object does. The journal line is written before it runs.
using Behaviour = std::function<automation::Value(StageObject& self, const automation::Arguments& arguments)>;

/// A file of the stage. It comes into being at `appears_at`, and each look at its length gives the next of
/// `lengths`, the last one for ever after.
struct StagedFile {
    std::uint64_t appears_at = 0;  ///< milliseconds of the stage's clock
    std::vector<std::int64_t> lengths{1000};
    std::string content;  ///< what was written to it on the stage
    bool hidden = false;  ///< has a length, and is in no listing
};

/// The stage: keeps a journal of everything that was done outside, one line per action, answers from a
/// script, fails the k-th action on demand, and has a clock that moves only when something sleeps on it (or,
/// when a test says so, pumps messages).
class Stage {
  public:
    Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;
    ~Stage();

    /// The ports of this world. They live as long as the stage.
    Platform platform();

    // What was done.

    /// All lines so far, each ended by a line feed.
    std::string journal() const;
    const std::vector<std::string>& lines() const noexcept { return lines_; }
    /// Adds a line of the test's own, such as an event that arrived.
    void note(const std::string& line);
    /// Forgets the lines so far and starts counting actions at 1 again.
    void clear_journal();
    /// Called with every new line, for those who want to show it at once; may be empty.
    std::function<void(const std::string&)> on_line;

    // What the world answers.

    /// What `class_name.member` does, for get, call and set alike. Without a script a get answers an object
    /// named after the application and the member, "Word.Documents", and a call answers nothing. The member
    /// "_NewEnum" of a collection answers an array of its elements; without a script it has none.
    void when(const std::string& class_and_member, Behaviour behaviour);
    /// `class_name.member` answers that value.
    void answer(const std::string& class_and_member, automation::Value value);
    /// `class_name.member` answers a new object of that name each time, "Word.Document".
    void answer_object(const std::string& class_and_member, const std::string& name);
    /// Gives a class another name in the journal, "Distiller" for a class identifier.
    void call_class(const std::string& class_name, const std::string& name);
    /// Classes that are not installed; creating one of them raises 429.
    std::set<std::string> missing_classes;
    /// The name of a class in the journal.
    std::string name_of_class(const std::string& class_name) const;
    /// An object of the stage, as a call of a scripted host returns it, named after its application and its
    /// kind: "Word.Document".
    automation::ObjectPtr make_object(const std::string& name);

    std::map<std::string, StagedFile> files;
    /// Puts a file of 1000 bytes there, from now on.
    void put_file(const std::string& path);
    std::set<std::string> folders;
    std::set<std::string> names_in_current_folder;
    char separator = '\\';
    /// Asked for the length of a file that the stage knows nothing of; may be empty.
    std::function<std::optional<std::int64_t>(const std::string&)> real_length;
    /// Asked for the names that match a pattern, of files that the stage knows nothing of; may be empty.
    std::function<std::vector<std::string>(const std::string&)> real_names;

    std::string system_folder = "C:\\WINDOWS\\system32";
    std::string library_folder = "C:\\Program Files\\Foliant";
    /// Programs that can be started, by path.
    std::set<std::string> programs;
    /// Has somebody more told the command line of each program that starts.
    void when_program_starts(std::function<void(const std::string& command_line)> listener);

    /// Captions of top-level windows, with the time at which they appear.
    std::map<std::string, std::uint64_t> windows;
    /// What was typed so far, a line feed for Enter. A scripted host that takes it empties it.
    std::string typed;

    /// Registry values by key ("HKEY_LOCAL_MACHINE\\SOFTWARE\\...", any case) and value name. A key exists
    /// when it is in here or above one that is.
    struct RegistryValue {
        std::uint32_t type = reg_string;
        std::string data;
    };
    std::map<std::string, std::map<std::string, RegistryValue>> registry;
    /// Writes a text value, with the NUL that ends it.
    void set_registry_text(const std::string& key, const std::string& name, const std::string& text);
    /// What reading the size of a value answers instead of the truth, by value name.
    std::map<std::string, std::int32_t> registry_refusals;

    /// What the system says it is: 1 is Windows 95, 2 Windows NT.
    std::uint32_t platform_identifier = 2;
    /// The user's profile: sections, keys, texts. Its device is the default printer.
    std::map<std::string, std::map<std::string, std::string>> profile{
        {"windows", {{"Device", "Office printer,winspool,Ne01:"}}}};
    /// The printers that can be opened, by name.
    std::map<std::string, PrinterInfo> printers;

    // Time.

    /// Milliseconds since the stage was set up.
    std::uint64_t now = 0;
    std::uint64_t pump_takes = 0;       ///< milliseconds that one pass over the message queue takes
    float midnight_offset_seconds = 0;  ///< what the seconds-since-midnight timer showed at `now` 0
    std::vector<std::uint64_t>
        seeds;                      ///< what the random seed is, one after the other; 1, 2, 3 ... after them
    std::function<void()> on_pump;  ///< something else that happens while messages are pumped; may be empty

    // Failing.

    /// The k-th action (counted from 1, since the journal was last cleared) fails with that error; 0 fails
    /// none.
    void fail_action(long k, automation::Error error);
    /// Every action from the k-th on fails with that error, but for the one that `fail_action` names; 0 fails
    /// none.
    void fail_actions_from(long k, automation::Error error);
    /// How many actions there were.
    long actions() const noexcept { return actions_; }

    /// Writes the line, counts it as an action, and raises when it is the one that is to fail. Raises
    /// std::logic_error after 20000 actions: then something waits for what never comes. Ends the process when
    /// it goes on all the same.
    void act(const std::string& line);
    /// The same for calls that answer with a code: whether this one is to fail.
    bool act_or_refuse(const std::string& line);

    /// Adds to the last line what the action answered.
    void extend_last_line(const std::string& answer) { lines_.back() += answer; }

  private:
    friend class StageObject;
    friend class StagePrograms;

    /// The error with which the action that is being done is to fail, nullptr when it is not to.
    const automation::Error* failure_of_this_action() const noexcept;

    struct Ports;
    std::unique_ptr<Ports> ports_;
    std::vector<std::string> lines_;
    std::map<std::string, Behaviour> behaviours_;
    std::map<std::string, std::string> class_names_;
    std::vector<std::function<void(const std::string&)>> program_listeners_;
    long actions_ = 0;
    long failing_action_ = 0;
    automation::Error failure_{0, "", ""};
    long failing_from_ = 0;
    automation::Error later_failure_{0, "", ""};
};

}  // namespace foliant::platform::stage
