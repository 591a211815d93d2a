#include "hosts/acrobat/front/front_module.h"

#include "hosts/acrobat/front/front.h"
#include "hosts/acrobat/front/parts.h"
#include "hosts/containment/usual_files.h"

namespace foliant::hosts::acrobat::front {
namespace {

const Engine& load_engine() {
    return load<const Engine&()>(engine_part)();
}

std::string shortcomings() {
    std::string sentences;
    for (const Part& part : {text_part, tiff_part}) {
        try {
            load<void()>(part);
        } catch (const automation::Error& missing) {
            sentences += (sentences.empty() ? "" : " ") + missing.description();
        }
    }
    return sentences;
}

automation::ObjectPtr create(std::string_view class_name, Machine& machine) {
    static std::weak_ptr<Front> last;
    std::shared_ptr<Front> front = last.lock();
    if (!front || &front->machine() != &machine) {
        front = std::make_shared<Front>(machine, load_engine);
        last = front;
    }
    return front->create(class_name);
}

/// Documents come as open files.
containment::Policy policy(const std::filesystem::path& folder) {
    using namespace containment;
    return {.may_read = system_libraries() + time_zones() + empty_devices() + files_of_parts(),
            .may_write = {folder, "/dev/null"},
            .may_start = {},
            .limits = {}};
}

/// Fonts and character maps, and what languages do with text.
containment::Paths for_text() {
    using namespace containment;
    return fonts() + locales() + Paths{"/usr/share/poppler"};
}

constexpr Module module = {
    [] { return load_engine().version(); }, create, policy, for_text, shortcomings, true};

}  // namespace

const Module* front_module() noexcept {
    return &module;
}

}  // namespace foliant::hosts::acrobat::front
