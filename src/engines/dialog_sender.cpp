#include "engines/dialog_sender.h"

#include "session/errors.h"

namespace foliant::engines {

using session::Session;

namespace {

constexpr std::string_view sender_program = "quorixsend.exe";
constexpr std::int32_t system_folder_number = 37;

std::string sender_path(const Session& session, const std::string& folder) {
    return folder + session.outside().files.separator() + std::string(sender_program);
}

}  // namespace

std::string system_folder(const Session& session) {
    return session.GetSpecialFolder(system_folder_number);
}

std::optional<std::string> locate_sender(const Session& session) {
    return locate_sender(session, system_folder(session));
}

std::optional<std::string> locate_sender(const Session& session, const std::string& system) {
    const auto is_in = [&](const std::string& folder) {
        return session.FileExists(sender_path(session, folder));
    };
    if (is_in(system)) return system;
    if (std::string own = session.outside().shell.library_folder(); is_in(own)) return own;
    return std::nullopt;
}

std::string require_sender(const Session& session) {
    return require_sender(session, system_folder(session));
}

std::string require_sender(const Session& session, const std::string& system) {
    auto folder = locate_sender(session, system);
    if (!folder) throw session::component_error(std::string(sender_missing_text));
    return *std::move(folder);
}

void start_sender(const Session& session, const std::string& folder, const SenderCommand& command) {
    std::string line = sender_path(session, folder) + " ";
    for (const std::string_view field :
         {command.caption, command.control_class, command.text, std::string_view(&command.flag_a, 1),
          std::string_view(&command.flag_b, 1)}) {
        line += std::string(field) + "~";
    }
    session.outside().programs.start(line, platform::WindowStyle::hidden);
}

}  // namespace foliant::engines
