#include "platform/stage/stage_ports.h"

#include <algorithm>
#include <cmath>

#include "automation/error.h"
#include "automation/text.h"
#include "platform/name_pattern.h"
#include "platform/stage/stage_object.h"

namespace foliant::platform::stage {

using automation::Error;
using automation::RuntimeError;

namespace {

constexpr float seconds_per_day = 86400;
constexpr std::uint32_t default_attribute = 4;  ///< what makes a printer the default one on Windows 95

/// A text as one line of the journal: its own line ends are written out.
std::string on_one_line(std::string_view text) {
    std::string line;
    for (const char character : text) {
        if (character == '\r')
            line += "\\r";
        else if (character == '\n')
            line += "\\n";
        else
            line += character;
    }
    return line;
}

class StagedText : public TextFile {
  public:
    StagedText(Stage& stage, std::string path) : stage_(stage), path_(std::move(path)) {}
    ~StagedText() override {
        if (open_) stage_.note("close " + path_);
    }
    void write_line(std::string_view line) override {
        stage_.act("write " + path_ + ":" + (line.empty() ? "" : " " + on_one_line(line)));
        stage_.files[path_].content += std::string(line) + "\r\n";
    }
    void close() override {
        stage_.act("close " + path_);
        open_ = false;
    }

  private:
    Stage& stage_;
    std::string path_;
    bool open_ = true;
};

/// Answers from the files that are there when a name is asked for.
class StagedListing : public Listing {
  public:
    StagedListing(Stage& stage, const std::string& pattern)
        : stage_(stage),
          pattern_(pattern),
          folder_(pattern.substr(0, pattern.rfind(stage.separator) + 1)),
          wanted_(std::string_view(pattern).substr(folder_.size())) {}

    std::optional<std::string> next() override {
        stage_.act("next file");
        std::vector<std::string> names = names_now();
        std::sort(names.begin(), names.end(), comes_before);
        const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& name) {
            return !ended_ && (!last_ || comes_before(*last_, name));
        });
        stage_.extend_last_line(" -> " + (found == names.end() ? "none" : *found));
        ended_ = found == names.end();
        last_ = ended_ ? std::nullopt : std::optional(*found);
        return last_;
    }

  private:
    std::vector<std::string> names_now() const {
        std::vector<std::string> names;
        for (const auto& [path, file] : stage_.files) {
            const std::string name(automation::file_name_part(path, stage_.separator));
            const bool listed = file.appears_at <= stage_.now && !file.lengths.empty() && !file.hidden;
            const std::string folder = path.substr(0, path.size() - name.size());
            if (listed && automation::equal_ignoring_case(folder, folder_) && wanted_.matches(name))
                names.push_back(name);
        }
        if (!stage_.real_names) return names;
        for (const std::string& name : stage_.real_names(pattern_))
            if (!stage_.files.contains(folder_ + name)) names.push_back(name);
        return names;
    }

    Stage& stage_;
    std::string pattern_;
    std::string folder_;  ///< with the separator at its end
    NamePattern wanted_;
    std::optional<std::string> last_;
    bool ended_ = false;
};

}  // namespace

std::int64_t StageFiles::length(const std::string& path) {
    stage_.act("length " + path);
    const auto refuse = [&]() -> std::int64_t {
        stage_.extend_last_line(" -> not found");
        throw Error(RuntimeError::file_not_found);
    };
    const auto found = stage_.files.find(path);
    if (found == stage_.files.end()) {
        const auto real = stage_.real_length ? stage_.real_length(path) : std::nullopt;
        if (!real) return refuse();
        stage_.extend_last_line(" -> " + std::to_string(*real));
        return *real;
    }
    StagedFile& file = found->second;
    if (stage_.now < file.appears_at || file.lengths.empty()) return refuse();
    const std::int64_t length = file.lengths.front();
    if (file.lengths.size() > 1) file.lengths.erase(file.lengths.begin());
    stage_.extend_last_line(" -> " + std::to_string(length));
    return length;
}

bool StageFiles::exists_in_current_folder(const std::string& name) {
    stage_.act("look for " + name + " in the current folder");
    return stage_.names_in_current_folder.contains(name);
}

void StageFiles::remove(const std::string& path) {
    stage_.act("delete " + path);
    const auto file = stage_.files.find(path);
    if (file == stage_.files.end() ? !(stage_.real_length && stage_.real_length(path))
                                   : file->second.appears_at > stage_.now || file->second.lengths.empty()) {
        throw Error(RuntimeError::file_not_found);
    }
    // Stays known as a file that is gone, so that no real one shines through.
    stage_.files[path].lengths.clear();
}

void StageFiles::make_folder(const std::string& path) {
    stage_.act("make folder " + path);
    std::string folder = path;
    while (folder.ends_with(stage_.separator))
        folder.pop_back();
    if (stage_.folders.contains(folder)) throw Error(RuntimeError::path_file_access);
    const std::size_t last = folder.rfind(stage_.separator);
    if (last == std::string::npos || !stage_.folders.contains(folder.substr(0, last))) {
        throw Error(RuntimeError::path_not_found);
    }
    stage_.folders.insert(folder);
}

std::unique_ptr<TextFile> StageFiles::create_text(const std::string& path, TextPurpose) {
    stage_.act("create text file " + path);
    stage_.put_file(path);
    return std::make_unique<StagedText>(stage_, path);
}

std::unique_ptr<Listing> StageFiles::list(const std::string& pattern) {
    stage_.act("list " + pattern);
    return std::make_unique<StagedListing>(stage_, pattern);
}

void StageClock::sleep(std::uint32_t milliseconds) {
    stage_.act("sleep " + std::to_string(milliseconds) + " ms");
    stage_.now += milliseconds;
}

float StageClock::seconds_since_midnight() {
    const auto seconds = stage_.midnight_offset_seconds + static_cast<float>(stage_.now) / 1000.0F;
    return std::fmod(seconds, seconds_per_day);
}

std::uint64_t StageClock::random_seed() {
    const std::size_t given = seeds_given_++;
    return given < stage_.seeds.size() ? stage_.seeds[given] : given + 1;
}

void StageClock::pump_messages() {
    stage_.act("pump messages");
    stage_.now += stage_.pump_takes;
    if (stage_.on_pump) stage_.on_pump();
}

WindowHandle StageWindows::find_window(const std::string& caption) {
    stage_.act("find window \"" + caption + "\"");
    for (const auto& [shown, appears_at] : stage_.windows) {
        if (appears_at <= stage_.now && automation::equal_ignoring_case(shown, caption)) {
            const auto handle = static_cast<WindowHandle>(found_.size() + 1);
            found_[handle] = shown;
            stage_.extend_last_line(" -> found");
            return handle;
        }
    }
    stage_.extend_last_line(" -> none");
    return 0;
}

void StageWindows::close_window(WindowHandle window, const std::string& text) {
    stage_.act("send WM_CLOSE (0, \"" + text + "\") to \"" + found_[window] + "\"");
    stage_.windows.erase(found_[window]);
}

void StageWindows::type_text(const std::string& text) {
    stage_.act("type \"" + text + "\"");
    stage_.typed += text;
}

void StageWindows::press_enter() {
    stage_.act("press Enter");
    stage_.typed += '\n';
}

void StageWindows::message_box(const std::string& prompt, const std::string& title, std::uint32_t style) {
    stage_.act("message box \"" + prompt + "\", title \"" + title + "\", style " + std::to_string(style));
}

void StagePrograms::start(const std::string& command_line, WindowStyle style) {
    stage_.act("start (" + std::string(style == WindowStyle::hidden ? "hidden" : "shown") + ") " +
               command_line);
    const bool known =
        std::any_of(stage_.programs.begin(), stage_.programs.end(), [&](const std::string& program) {
            return command_line == program || command_line.starts_with(program + " ");
        });
    if (!known) throw Error(RuntimeError::file_not_found);
    for (const auto& listener : stage_.program_listeners_)
        listener(command_line);
}

std::optional<std::string> StageShell::special_folder(std::intptr_t owner, std::int32_t folder) {
    stage_.act("special folder " + std::to_string(folder) + " (owner " + std::to_string(owner) + ")");
    if (folder != 37 || stage_.system_folder.empty()) return std::nullopt;
    std::string buffer = stage_.system_folder;
    buffer.resize(512, '\0');
    return buffer;
}

std::uint32_t StagePrinters::platform_identifier() {
    stage_.note("platform identifier -> " + std::to_string(stage_.platform_identifier));
    return stage_.platform_identifier;
}

std::string StagePrinters::default_printer() {
    if (stage_.act_or_refuse("default printer")) return "";
    const std::string& device = stage_.profile["windows"]["Device"];
    std::string name = device.substr(0, device.find(','));
    stage_.extend_last_line(" -> " + (name.empty() ? "none" : name));
    return name;
}

std::string StagePrinters::profile_entry(const std::string& section, const std::string& key) {
    if (stage_.act_or_refuse("profile [" + section + "] " + key)) return "";
    const std::string text = stage_.profile[section][key];
    stage_.extend_last_line(" -> " + (text.empty() ? "nothing" : text));
    return text;
}

void StagePrinters::write_profile_entry(const std::string& section, const std::string& key,
                                        const std::string& text) {
    if (!stage_.act_or_refuse("write profile [" + section + "] " + key + " = " + text))
        stage_.profile[section][key] = text;
}

void StagePrinters::announce_profile_change(const std::string& section) {
    stage_.act_or_refuse("tell all windows that profile [" + section + "] has changed");
}

PrinterHandle StagePrinters::open_printer(const std::string& name) {
    if (stage_.act_or_refuse("open printer " + name)) return 0;
    if (!stage_.printers.contains(name)) {
        stage_.extend_last_line(" -> refused");
        return 0;
    }
    const auto handle = static_cast<PrinterHandle>(open_.size() + 1);
    open_[handle] = name;
    return handle;
}

std::optional<PrinterInfo> StagePrinters::printer_info(PrinterHandle printer) {
    if (stage_.act_or_refuse("get printer " + open_[printer])) return std::nullopt;
    return stage_.printers[open_[printer]];
}

bool StagePrinters::set_printer_info(PrinterHandle printer, const PrinterInfo& info) {
    if (stage_.act_or_refuse("set printer " + open_[printer] + ": name " + info.name + ", port " + info.port +
                             ", attributes " + std::to_string(info.attributes) + ", timeouts " +
                             std::to_string(info.device_not_selected_timeout) + " " +
                             std::to_string(info.transmission_retry_timeout)))
        return false;
    stage_.printers[open_[printer]] = info;
    if ((info.attributes & default_attribute) != 0)
        stage_.profile["windows"]["Device"] = info.name + ",winspool," + info.port;
    return true;
}

void StagePrinters::close_printer(PrinterHandle printer) {
    stage_.act_or_refuse("close printer " + open_[printer]);
}

automation::ObjectPtr StageServers::create(std::string_view class_name) {
    const std::string wanted(class_name);
    stage_.act("create " + stage_.name_of_class(wanted));
    if (stage_.missing_classes.contains(wanted)) throw Error(RuntimeError::cannot_create_object);
    return stage_.make_object(stage_.name_of_class(wanted));
}

}  // namespace foliant::platform::stage
