#include "core/build_pdf.h"
#include "transfer/ftp.h"

namespace foliant::core {
namespace {

/// What both members have in common: all of it.
transfer::FtpTransfer ftp_transfer(const automation::ObjectPtr& inet, const std::string& strRemoteHost,
                                   const std::string& strRemoteDirectory, const std::string& strLocalFile,
                                   const std::string& strRemoteFile, const std::string& strUsername,
                                   const std::string& strUserPassword) {
    return {.control = inet,
            .host = strRemoteHost,
            .directory = strRemoteDirectory,
            .local_file = strLocalFile,
            .remote_file = strRemoteFile,
            .user = strUsername,
            .password = strUserPassword};
}

}  // namespace

void BuildPDF::UploadFile(automation::ObjectPtr& inet, std::string& strRemoteHost,
                          std::string& strRemoteDirectory, std::string& strLocalFile,
                          std::string& strRemoteFile, std::string& strUsername,
                          std::string& strUserPassword) {
    transfer::UploadFile(session_, ftp_transfer(inet, strRemoteHost, strRemoteDirectory, strLocalFile,
                                                strRemoteFile, strUsername, strUserPassword));
}

void BuildPDF::DownloadFile(automation::ObjectPtr& inet, std::string& strRemoteHost,
                            std::string& strRemoteDirectory, std::string& strLocalFile,
                            std::string& strRemoteFile, std::string& strUsername,
                            std::string& strUserPassword) {
    transfer::DownloadFile(session_, ftp_transfer(inet, strRemoteHost, strRemoteDirectory, strLocalFile,
                                                  strRemoteFile, strUsername, strUserPassword));
}

}  // namespace foliant::core
