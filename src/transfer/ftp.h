#pragma once

#include <string>

#include "automation/value.h"
#include "session/session.h"

/// Files to and from FTP servers, as the sequences of steps that the members are. Knows session/.
namespace foliant::transfer {

/// One transfer through an Internet Transfer control of the caller's, which keeps what is set here.
struct FtpTransfer {
    automation::ObjectPtr control;
    std::string host;
    std::string directory;    ///< on the server; blank means the one that the user begins in
    std::string local_file;   ///< goes into the command as it stands, unquoted; so do the folder and this:
    std::string remote_file;  ///< name on the server
    std::string user;
    std::string password;
};

// Both return when the control says that nothing is being executed any more, however long that takes. What a
// server refuses, the control keeps to itself. Both raise 91 without a control, and what the control raises.

void UploadFile(const session::Session& session, const FtpTransfer& transfer);

/// Nothing is deleted beforehand: what becomes of a local file of that name is for the control to say.
void DownloadFile(const session::Session& session, const FtpTransfer& transfer);

}  // namespace foliant::transfer
