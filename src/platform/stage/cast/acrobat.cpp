#include <map>
#include <memory>
#include <utility>

#include "automation/coerce.h"
#include "platform/stage/cast/cast.h"
#include "platform/stage/cast/sender_command.h"
#include "platform/stage/stage_object.h"
#include "registered/keys.h"

namespace foliant::platform::stage {

using automation::Arguments;
using automation::Value;

namespace {

/// What waits in the queue of keys for the next dialog, up to Enter; it is taken out.
std::string take_typed_text(Stage& stage) {
    const std::string typed = std::exchange(stage.typed, {});
    return typed.substr(0, typed.find('\n'));
}

/// Web capture shows the page whose address was typed into its dialog, by a sender or as keys.
void cast_application(Stage& stage) {
    const auto address = std::make_shared<std::string>();
    stage.when_program_starts([address](const std::string& command_line) {
        if (auto typed = typed_into("create pdf from web page", command_line)) *address = *typed;
    });
    stage.when("AcroExch.App.MenuItemExecute", [address](StageObject& self, const Arguments& arguments) {
        if (automation::to_text(arguments.at(0).value) != "Web2PDF:OpnURL") return Value(true);
        if (!self.stage().typed.empty()) *address = take_typed_text(self.stage());
        self.stage().windows["Adobe Acrobat Professional - [" + *address + "/]"] = self.stage().now;
        return Value(true);
    });
    for (const char* member : {"Show", "Exit"})
        stage.answer("AcroExch.App." + std::string(member), true);
    stage.answer_object("AcroExch.App.GetActiveDoc", "AcroExch.AVDoc");
}

void cast_viewer_document(Stage& stage) {
    for (const char* member : {"Open", "IsValid", "FindText", "PrintPages", "PrintPagesSilent", "Close"})
        stage.answer("AcroExch.AVDoc." + std::string(member), true);
    stage.answer_object("AcroExch.AVDoc.GetPDDoc", "AcroExch.PDDoc");
}

/// How many pages the documents have that did not begin with three of them, or got more.
using PageCounts = std::map<std::weak_ptr<automation::Object>, std::int32_t, std::owner_less<>>;

std::int32_t& pages_of(PageCounts& counts, StageObject& document) {
    return counts.try_emplace(document.weak_from_this(), 3).first->second;
}

void cast_pages(Stage& stage) {
    const auto counts = std::make_shared<PageCounts>();
    stage.when("AcroExch.PDDoc.Create", [counts](StageObject& self, const Arguments&) {
        pages_of(*counts, self) = 0;
        return Value(true);
    });
    stage.when("AcroExch.PDDoc.InsertPages", [counts](StageObject& self, const Arguments& arguments) {
        pages_of(*counts, self) += automation::to_int32(arguments.at(3).value);
        return Value(true);
    });
    stage.when("AcroExch.PDDoc.GetNumPages",
               [counts](StageObject& self, const Arguments&) { return Value(pages_of(*counts, self)); });
}

void cast_document(Stage& stage) {
    for (const char* member : {"Open", "SetInfo", "Close"})
        stage.answer("AcroExch.PDDoc." + std::string(member), true);
    stage.answer("AcroExch.PDDoc.SetFlags", std::int32_t{0});
    cast_pages(stage);
    stage.answer_object("AcroExch.PDDoc.OpenAVDoc", "AcroExch.AVDoc");
    stage.when("AcroExch.PDDoc.Save", [](StageObject& self, const Arguments& arguments) {
        self.stage().put_file(automation::to_text(arguments.at(1).value));
        return Value(true);
    });
}

void cast_text(Stage& stage) {
    stage.answer_object("AcroExch.PDDoc.AcquirePage", "AcroExch.PDPage");
    stage.answer_object("AcroExch.PDPage.GetSize", "AcroExch.Point");
    stage.answer("AcroExch.Point.x", std::int16_t{612});
    stage.answer("AcroExch.Point.y", std::int16_t{792});
    stage.answer_object("AcroExch.PDDoc.CreateTextSelect", "AcroExch.PDTextSelect");
    stage.answer("AcroExch.PDTextSelect.GetNumText", std::int32_t{2});
    stage.when("AcroExch.PDTextSelect.GetText", [](StageObject&, const Arguments& arguments) {
        const bool first = automation::to_text(arguments.at(0).value) == "0";
        return Value(first ? "two " : "words\r\n");
    });
}

void cast_bookmark(Stage& stage) {
    for (const char* member : {"GetByTitle", "SetTitle", "Perform"})
        stage.answer("AcroExch.PDBookmark." + std::string(member), true);
}

}  // namespace

void cast_acrobat(Stage& stage) {
    stage.set_registry_text(registered::key_of_computer(registered::acrobat_version_key), "", "6.0");
    cast_application(stage);
    cast_viewer_document(stage);
    cast_document(stage);
    cast_text(stage);
    cast_bookmark(stage);
}

}  // namespace foliant::platform::stage
