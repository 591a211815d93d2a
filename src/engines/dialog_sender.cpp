#include "engines/dialog_sender.h"

namespace foliant::engines {
namespace {

constexpr std::string_view sender_program = "quorixsend.exe";
constexpr std::int32_t system_folder_number = 37;

std::string sender_path(const session::Session& session, const std::string& folder) {
    return folder + session.outside().files.separator() + std::string(sender_program);
}

}  // namespace

std::string system_folder(const session::Session& session) {
    return session.GetSpecialFolder(system_folder_number);
}

bool sender_is_in(const session::Session& session, const std::string& folder) {
    return session.FileExists(sender_path(session, folder));
}

std::optional<std::string> locate_sender(const session::Session& session) {
    if (std::string folder = system_folder(session); sender_is_in(session, folder)) return folder;
    if (std::string folder = session.outside().shell.library_folder(); sender_is_in(session, folder))
        return folder;
    return std::nullopt;
}

void start_sender(const session::Session& session, const std::string& folder, const SenderCommand& command) {
    std::string line = sender_path(session, folder) + " ";
    for (const std::string_view field :
         {command.caption, command.control_class, command.text, std::string_view(&command.flag_a, 1),
          std::string_view(&command.flag_b, 1)}) {
        line += std::string(field) + "~";
    }
    session.outside().programs.start(line, platform::WindowStyle::hidden);
}

}  // namespace foliant::engines
