#include <cstdlib>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include "hosts/office/support.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::office {
namespace {

/// A port of this machine that somebody listens on, and that knows whether anybody has called.
class Listener {
  public:
    Listener() : socket_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        if (bind(socket_, reinterpret_cast<sockaddr*>(&address), size) != 0 || listen(socket_, 8) != 0 ||
            getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size) != 0)
            throw std::runtime_error("no port to listen on");
        port_ = ntohs(address.sin_port);
    }
    ~Listener() { close(socket_); }

    std::string url(const std::string& name) const {
        return "http://127.0.0.1:" + std::to_string(port_) + "/" + name;
    }

    bool was_called() const {
        pollfd call{socket_, POLLIN, 0};
        return poll(&call, 1, 200) > 0;
    }

  private:
    int socket_;
    int port_ = 0;
};

void convert(const std::filesystem::path& path) {
    const tests::ScratchFolder folder;
    test::open(path)->export_pdf("", folder / "out.pdf");
    EXPECT_EQ(tests::names_in(folder.path()), tests::Names{"out.pdf"});
}

TEST(Safety, MacrosDoNotRun) {
    std::filesystem::remove(test::document("ran"));
    convert(test::document("macro.odt"));
    EXPECT_FALSE(std::filesystem::exists(test::document("ran")));
}

TEST(Safety, PicturesOfAWebPageAreNotFetched) {
    const tests::ScratchFolder folder;
    const Listener listener;
    tests::write_file(folder / "page.html", "<html><head><link rel=\"stylesheet\" href=\"" +
                                                listener.url("s.css") + "\"></head><body><img src=\"" +
                                                listener.url("p.png") + "\"></body></html>");
    convert(folder / "page.html");
    EXPECT_FALSE(listener.was_called());
}

TEST(Safety, LinkedContentOfADocumentIsNotFetched) {
    const tests::ScratchFolder folder;
    const Listener listener;
    const std::string names =
        "xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
        "xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\" "
        "xmlns:draw=\"urn:oasis:names:tc:opendocument:xmlns:drawing:1.0\" "
        "xmlns:svg=\"urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0\" "
        "xmlns:xlink=\"http://www.w3.org/1999/xlink\" ";
    tests::write_file(
        folder / "links.fodt",
        "<office:document " + names +
            "office:version=\"1.2\" office:mimetype=\"application/vnd.oasis.opendocument.text\"><office:body>"
            "<office:text><text:section text:name=\"s\"><text:section-source xlink:href=\"" +
            listener.url("s.odt") +
            "\"/><text:p>Old</text:p></text:section><text:p><draw:frame text:anchor-type=\"as-char\" "
            "svg:width=\"1in\" svg:height=\"1in\"><draw:image xlink:href=\"" +
            listener.url("p.png") +
            "\"/></draw:frame></text:p></office:text></office:body></office:document>");
    convert(folder / "links.fodt");
    EXPECT_FALSE(listener.was_called());
}

TEST(Safety, LinkedPicturesOfAWordDocumentAreNotFetched) {
    const tests::ScratchFolder folder;
    const Listener listener;
    const std::string path = (folder / "linked.docx").string();
    ASSERT_EQ(std::system((MAKE_DOCUMENTS " " + path + " " + listener.url("p.png")).c_str()), 0);
    convert(path);
    EXPECT_FALSE(listener.was_called());
}

}  // namespace
}  // namespace foliant::hosts::office
