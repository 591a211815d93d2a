#include "sender/desktop.h"

#include <algorithm>
#include <utility>

namespace foliant::sender::test {

Dialog& Dialog::add(const std::string& window_class, const std::string& name, ControlKind kind) {
    Item item;
    item.control.window_class = window_class;
    item.control.label = name;
    item.control.kind = kind;
    item.control.visible = item.control.enabled = true;
    item.name = name;
    items_.push_back(item);
    return *this;
}

Dialog& Dialog::edit(const std::string& window_class) {
    add(window_class, "Edit " + std::to_string(++edits_), ControlKind::other);
    items_.back().control.label.clear();
    return *this;
}

Dialog& Dialog::disabled_edit() {
    edit();
    items_.back().control.enabled = false;
    return *this;
}

Dialog& Dialog::box(const std::string& label, bool ticked) {
    add("Button", label, ControlKind::check_box);
    items_.back().control.ticked = ticked;
    return *this;
}

Dialog& Dialog::group(const std::string& label) {
    return add("Button", label, ControlKind::other);
}
Dialog& Dialog::button(const std::string& label) {
    return add("Button", label, ControlKind::push_button);
}

Dialog& Dialog::default_button(const std::string& label) {
    button(label);
    items_.back().control.is_default = true;
    return *this;
}

Dialog& Dialog::edit_of_box() {
    const auto box = std::find_if(items_.rbegin(), items_.rend(), [](const Item& item) {
        return item.control.kind == ControlKind::check_box;
    });
    const auto index = static_cast<int>(std::distance(box, items_.rend())) - 1;
    edit();
    items_.back().enabled_by = index;
    return *this;
}

Dialog& Dialog::focus() {
    items_.back().control.focused = true;
    return *this;
}

Dialog& Dialog::hidden() {
    items_.back().control.visible = false;
    return *this;
}

Dialog& Dialog::overlooks_a_tick() {
    overlooks_a_tick_ = true;
    return *this;
}

Dialog& Dialog::closing_takes(Milliseconds time) {
    closing_takes_ = time;
    return *this;
}

Dialog& Dialog::frame() {
    is_dialog_ = false;
    return *this;
}

Dialog& Dialog::then(std::function<void(Desktop&)> next) {
    then_ = std::move(next);
    return *this;
}

WindowId Desktop::show(Dialog dialog) {
    const WindowId window{++last_id_};
    for (Dialog::Item& item : dialog.items_)
        item.control.id = WindowId{++last_id_};
    open_.emplace(window, std::move(dialog));
    order_.insert(order_.begin(), window);
    return window;
}

void Desktop::show_at(Milliseconds time, const Dialog& dialog) {
    at(time, [this, dialog] { show(dialog); });
}

void Desktop::at(Milliseconds time, std::function<void()> event) {
    events_.emplace(time, std::move(event));
}

void Desktop::set_enabled(WindowId window, bool enabled) {
    open_.at(window).enabled_ = enabled;
}
void Desktop::set_visible(WindowId window, bool visible) {
    open_.at(window).visible_ = visible;
}

void Desktop::set_control_enabled(WindowId window, const std::string& name, bool enabled) {
    for (Dialog::Item& item : open_.at(window).items_)
        if (item.name == name) item.control.enabled = enabled;
}

void Desktop::cancel(WindowId window) {
    note(window, "is cancelled");
    open_.erase(window);
    std::erase(order_, window);
}

void Desktop::cancel_all() {
    while (!order_.empty())
        cancel(order_.front());
}

std::string Desktop::deeds() const {
    std::string deeds;
    for (std::size_t at = 0; at < transcript_.size();) {
        const std::size_t end = transcript_.find('\n', at) + 1;
        deeds += transcript_.substr(transcript_.find("  ", at) + 2, end - transcript_.find("  ", at) - 2);
        at = end;
    }
    return deeds;
}

bool Desktop::call_fails() {
    if (!before_call || in_hook_) return false;
    in_hook_ = true;
    const bool fails = before_call(++calls_);
    in_hook_ = false;
    return fails;
}

std::vector<TopLevel> Desktop::top_level() {
    call_fails();
    std::vector<TopLevel> windows;
    for (const WindowId window : order_) {
        const Dialog& dialog = open_.at(window);
        windows.push_back({window, dialog.caption_, dialog.visible_, dialog.enabled_, dialog.is_dialog_});
    }
    return windows;
}

std::vector<Control> Desktop::controls(WindowId window) {
    call_fails();
    std::vector<Control> controls;
    const auto found = open_.find(window);
    if (found == open_.end()) return controls;
    for (const Dialog::Item& item : found->second.items_) {
        controls.push_back(item.control);
        controls.back().enabled = takes_input(found->second, item);
    }
    return controls;
}

bool Desktop::is_open(WindowId window) {
    call_fails();
    const auto found = open_.find(window);
    return found != open_.end() && found->second.visible_;
}

bool Desktop::set_text(WindowId control, const std::string& text) {
    if (call_fails()) return false;
    const Found found = find(control);
    if (!found.item) return false;
    note(found.window, found.item->name + " now holds \"" + text + "\"");
    return true;
}

bool Desktop::tick(WindowId check_box) {
    if (call_fails()) return false;
    const Found found = find(check_box);
    if (!found.item) return false;
    if (std::exchange(open_.at(found.window).overlooks_a_tick_, false)) return true;
    note(found.window, "box \"" + found.item->name + "\" is ticked");
    found.item->control.ticked = true;
    return true;
}

bool Desktop::press(WindowId push_button) {
    if (call_fails()) return false;
    const Found found = find(push_button);
    if (!found.item) return false;
    note(found.window, "button \"" + found.item->name + "\" is pressed");
    answer(found.window);
    return true;
}

bool Desktop::confirm(WindowId window) {
    if (call_fails()) return false;
    const auto found = open_.find(window);
    if (found == open_.end()) return false;
    for (const Dialog::Item& item : found->second.items_)
        if (item.control.is_default && !item.control.enabled) return false;
    note(window, "Enter");
    answer(window);
    return true;
}

bool Desktop::claim(WindowId window, Claim act) {
    if (call_fails()) return false;
    return open_.contains(window) && claims_.insert({window, act}).second;
}

bool Desktop::is_claimed(WindowId window, Claim act) {
    call_fails();
    return claims_.contains({window, act});
}

void Desktop::sleep_for(Milliseconds time) {
    const Milliseconds until = now_ + time;
    while (!events_.empty() && events_.begin()->first <= until) {
        const auto event = events_.extract(events_.begin());
        now_ = std::max(now_, event.key());
        event.mapped()();
    }
    now_ = until;
}

Desktop::Found Desktop::find(WindowId control) {
    for (auto& [window, dialog] : open_)
        for (Dialog::Item& item : dialog.items_)
            if (item.control.id == control && takes_input(dialog, item)) return {window, &item};
    return {};
}

bool Desktop::takes_input(const Dialog& dialog, const Dialog::Item& item) const {
    if (item.enabled_by < 0) return item.control.enabled;
    return dialog.items_[static_cast<std::size_t>(item.enabled_by)].control.ticked;
}

void Desktop::note(WindowId window, const std::string& deed) {
    transcript_ += std::to_string(now_.count()) + "  " + open_.at(window).caption_ + ": " + deed + "\n";
}

void Desktop::answer(WindowId window) {
    const Milliseconds time = open_.at(window).closing_takes_;
    if (time.count() == 0) return close(window);
    if (closing_.insert(window).second) at(now_ + time, [this, window] { close(window); });
}

void Desktop::close(WindowId window) {
    const auto next = open_.at(window).then_;
    if (open_.at(window).closing_takes_.count() > 0) note(window, "has closed");
    open_.erase(window);
    std::erase(order_, window);
    if (next) next(*this);
}

std::vector<Progress> play(Desktop& desktop, std::vector<Sender>& senders) {
    std::vector<Progress> outcome(senders.size(), Progress::waiting);
    do {
        for (std::size_t i = 0; i < senders.size(); ++i)
            outcome[i] = senders[i].step(desktop);
        desktop.sleep_for(Milliseconds{100});
    } while (std::count(outcome.begin(), outcome.end(), Progress::waiting) > 0);
    return outcome;
}

std::vector<Sender> senders_for(const std::vector<std::string>& tails) {
    std::vector<Sender> senders;
    for (const std::string& tail : tails)
        senders.emplace_back(parse(tail));
    return senders;
}

Dialog open_dialog() {
    return Dialog("Open").edit().default_button("Open").button("Cancel");
}
Dialog password_dialog() {
    return Dialog("Password").edit().default_button("OK").button("Cancel");
}
Dialog save_dialog() {
    return Dialog("Save PDF File As").edit().default_button("Save").button("Cancel");
}

Dialog password_settings(bool ticked) {
    return Dialog("Password Security - Settings")
        .group("Password to Open")
        .box("Re&quire a password to open the document", ticked)
        .edit_of_box()
        .group("Permissions")
        .box("&Use a password to restrict printing and editing")
        .edit_of_box()
        .default_button("OK")
        .button("Cancel");
}

Dialog confirm_password() {
    return Dialog("Adobe Acrobat - Confirm Open Document Password")
        .edit()
        .default_button("OK")
        .button("Cancel");
}

Dialog notice() {
    return Dialog("Adobe Acrobat").default_button("OK");
}

Dialog security_sequence(bool ticked) {
    return password_settings(ticked).then([](Desktop& desktop) {
        desktop.show(confirm_password().then([](Desktop& next) { next.show(notice()); }));
    });
}

}  // namespace foliant::sender::test
