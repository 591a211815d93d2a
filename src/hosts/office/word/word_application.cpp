#include "hosts/office/word/word_application.h"

#include <algorithm>
#include <utility>

#include "automation/coerce.h"
#include "hosts/late_bound.h"
#include "hosts/office/engine/start.h"
#include "hosts/office/word/open_document.h"
#include "hosts/office/word/running_word.h"
#include "hosts/office/word/word_document.h"
#include "hosts/office/word/word_error.h"

namespace foliant::hosts::office {

using automation::to_text;
using automation::Value;

namespace {

using SessionPtr = std::shared_ptr<RunningWord>;

/// The session, as long as its Word is running.
RunningWord& running(const SessionPtr& session) {
    if (session->has_quit) throw word_error(WordError::not_running, "Word has been quit.");
    return *session;
}

std::string given_text(const Value& argument) {
    return argument.holds<automation::Missing>() ? std::string() : to_text(argument);
}

Value open(const SessionPtr& session, const Bound& arguments) {
    const std::string path = to_text(arguments[0]);
    std::shared_ptr<Document> document =
        open_document(running(session).machine, path, given_text(arguments[4]), given_text(arguments[7]));
    session->documents.push_back(document);
    return make_word_document(session, std::move(document));
}

std::int32_t open_documents(const RunningWord& session) {
    return static_cast<std::int32_t>(std::ranges::count_if(session.documents, [](const auto& document) {
        const auto open = document.lock();
        return open && open->is_open();
    }));
}

automation::ObjectPtr make_documents(const SessionPtr& session) {
    auto documents = std::make_shared<LateBound>(microsoft_word.name);
    documents->add_property("Count", [session] { return open_documents(running(session)); });
    documents->add_method("Open",
                          {"FileName", "ConfirmConversions", "ReadOnly", "AddToRecentFiles",
                           "PasswordDocument", "PasswordTemplate", "Revert", "WritePasswordDocument"},
                          [session](const Bound& arguments) { return open(session, arguments); });
    return documents;
}

void choose_printer(RunningWord& session, const std::string& name) {
    if (!session.machine.has_printer(name))
        throw word_error(WordError::printer_error, "There is no printer \"" + name +
                                                       "\". Give the name of the PDF printer, or of a queue "
                                                       "that lpstat -e lists.");
    session.active_printer = name;
}

void quit(RunningWord& session) {
    if (std::exchange(session.has_quit, true)) return;
    for (const auto& document : session.documents)
        if (const auto open = document.lock(); open && open->is_open()) open->close();
}

}  // namespace

automation::ObjectPtr make_word_application(Machine& machine) {
    require_office(microsoft_word);
    auto session = std::make_shared<RunningWord>(machine, machine.default_printer());
    auto application = std::make_shared<LateBound>(microsoft_word.name);
    application->add_property("Documents", [session] {
        running(session);
        return make_documents(session);
    });
    application->add_property(
        "DisplayAlerts", [session] { return running(session).display_alerts; },
        [session](const Value& value) { running(session).display_alerts = automation::to_int32(value); });
    application->add_property(
        "ActivePrinter", [session] { return running(session).active_printer; },
        [session](const Value& value) { choose_printer(running(session), to_text(value)); });
    application->add_method("Quit", {"SaveChanges", "OriginalFormat", "RouteDocument"},
                            [session](const Bound&) {
                                quit(*session);
                                return Value();
                            });
    return application;
}

}  // namespace foliant::hosts::office
