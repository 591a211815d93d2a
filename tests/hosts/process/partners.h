#pragma once

#include <functional>
#include <memory>
#include <string>
#include <sys/types.h>
#include <utility>
#include <vector>

#include "automation/object.h"
#include "hosts/process/peer.h"

namespace foliant::hosts::process::test {

/// Two peers: one here, and one in a process of its own that answers until this object goes.
class Partners {
  public:
    /// `serve` is run in the other process with its end of the connection.
    explicit Partners(const std::function<void(Channel)>& serve, Peer::Manners manners = {});
    Partners(const Partners&) = delete;
    Partners& operator=(const Partners&) = delete;
    ~Partners();

    /// The other side's object.
    automation::Value object();

    Peer& peer() { return *peer_; }
    pid_t process() const { return process_; }

  private:
    pid_t process_;
    std::shared_ptr<Peer> peer_;
};

/// Serves one object, which its service hands out whatever it is asked.
void serve_object(Channel channel, const automation::ObjectPtr& object);

/// An object whose members are functions.
class Scripted : public automation::Object {
  public:
    using Body =
        std::function<automation::Value(automation::Access, std::string_view, const automation::Arguments&)>;
    explicit Scripted(Body body) : body_(std::move(body)) {}

    automation::Value invoke(automation::Access access, std::string_view member,
                             const automation::Arguments& arguments) override {
        return body_(access, member, arguments);
    }

  private:
    Body body_;
};

/// "438 there is none" for the failure of an action; "" when there is none.
std::string failure_of(const std::function<void()>& action);

}  // namespace foliant::hosts::process::test
