#include "hosts/office/engine/profile.h"

#include <fstream>
#include <sstream>
#include <string>

#include "hosts/office/engine/installation.h"

namespace foliant::hosts::office {

namespace {

struct Setting {
    const char* path;
    const char* name;
    const char* value;
};

constexpr Setting settings[] = {
    // A profile that looks used, and used by a newer version: otherwise every start runs the graphics self
    // tests, which cost more than all the rest of the start.
    {"/org.openoffice.Setup/Product", "ooSetupLastVersion", "99.9"},
    {"/org.openoffice.Setup/Office", "ooSetupInstCompleted", "true"},
    {"/org.openoffice.Office.Common/Misc", "FirstRun", "false"},
    {"/org.openoffice.Office.Common/Misc", "ShowTipOfTheDay", "false"},
    {"/org.openoffice.Office.Common/Misc", "CrashReport", "false"},
    {"/org.openoffice.Office.Common/Misc", "CollectUsageInformation", "false"},
    {"/org.openoffice.Office.Common/Misc", "UseOpenCL", "false"},
    // Documents come from anywhere.
    {"/org.openoffice.Office.Common/Security/Scripting", "DisableMacrosExecution", "true"},
    {"/org.openoffice.Office.Common/Security/Scripting", "MacroSecurityLevel", "3"},
    {"/org.openoffice.Office.Common/Security/Scripting", "BlockUntrustedRefererLinks", "true"},
    {"/org.openoffice.Office.Writer/Content/Update", "Link", "0"},
    {"/org.openoffice.Office.Calc/Content/Update", "Link", "2"},
    {"/org.openoffice.Office.Java/VirtualMachine", "Enable", "false"},
    // Nothing is left beside a document, and nothing is remembered of it.
    {"/org.openoffice.Office.Common/Misc", "UseLocking", "false"},
    {"/org.openoffice.Office.Common/Misc", "UseDocumentSystemFileLocking", "false"},
    {"/org.openoffice.Office.Common/Misc", "UseDocumentOOoLockFile", "false"},
    {"/org.openoffice.Office.Common/History", "PickListSize", "0"},
    {"/org.openoffice.Office.Recovery/AutoSave", "Enabled", "false"},
    {"/org.openoffice.Office.Recovery/RecoveryInfo", "Enabled", "false"},
};

std::string registry_text(const std::string& build) {
    std::ostringstream text;
    text << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<oor:items xmlns:oor=\"http://openoffice.org/2001/registry\">\n";
    const auto add = [&](const char* path, const char* name, std::string_view value) {
        text << "<item oor:path=\"" << path << "\"><prop oor:name=\"" << name << "\" oor:op=\"fuse\"><value>"
             << value << "</value></prop></item>\n";
    };
    for (const Setting& setting : settings)
        add(setting.path, setting.name, setting.value);
    add("/org.openoffice.Setup/Office", "LastCompatibilityCheckID", build);
    text << "</oor:items>\n";
    return text.str();
}

void write_text(const std::filesystem::path& path, std::string_view text, const Application& application) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    if (!file.flush())
        throw application.error(
            automation::RuntimeError::path_file_access,
            "Cannot write the office profile " + path.string() +
                ". Check that the temporary folder is writable and its disk is not full.");
}

}  // namespace

void write_profile(const std::filesystem::path& profile, const std::filesystem::path& office,
                   const Application& application) {
    const std::filesystem::path extensions = profile / "user/extensions";
    std::error_code ignored;  // a folder that could not be made shows when the files are written
    std::filesystem::create_directories(extensions, ignored);
    const std::string build = ini_value(office / "program/versionrc", "buildid");
    write_text(profile / "user/registrymodifications.xcu", registry_text(build), application);
    // Saves a clearing of the extension cache that has just been made.
    write_text(extensions / "buildid", build, application);
}

std::string configuration_layers(const std::filesystem::path& office) {
    std::istringstream layers(ini_value(office / "program/fundamentalrc", "CONFIGURATION_LAYERS"));
    std::string kept;
    for (std::string layer; layers >> layer;) {
        const std::string kind = layer.substr(0, layer.find(':'));
        if (kind == "dconf" || kind.ends_with("ext")) continue;
        if (!kept.empty()) kept += ' ';
        kept += layer;
    }
    return kept;
}

}  // namespace foliant::hosts::office
