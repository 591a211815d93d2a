#include "hosts/process/partners.h"

#include <csignal>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "automation/error.h"

namespace foliant::hosts::process::test {

Partners::Partners(const std::function<void(Channel)>& serve, Peer::Manners manners) {
    auto [mine, its] = Channel::pair();
    process_ = fork();
    if (process_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        mine.close();
        try {
            serve(std::move(its));
        } catch (...) {
            _exit(1);
        }
        _exit(0);
    }
    its.close();
    if (!manners.lost)
        manners.lost = [](Peer::Loss loss, const std::string& member) {
            const std::string what = loss == Peer::Loss::garbled ? "garbled" : "gone";
            throw automation::Error(462, "", what + " during " + member);
        };
    peer_ = std::make_shared<Peer>(std::move(mine), std::move(manners));
}

Partners::~Partners() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
}

automation::Value Partners::object() {
    return peer_->call_for_value(Writer());
}

void serve_object(Channel channel, const automation::ObjectPtr& object) {
    Peer::Manners manners;
    manners.service = [&](Peer& peer, Reader&, Writer& result) { peer.put_object(result, object); };
    manners.lost = [](Peer::Loss, const std::string&) { _exit(0); };
    std::make_shared<Peer>(std::move(channel), std::move(manners))->serve();
}

std::string failure_of(const std::function<void()>& action) {
    try {
        action();
    } catch (const automation::Error& error) {
        return std::to_string(error.number()) + " " + error.description();
    }
    return "";
}

}  // namespace foliant::hosts::process::test
