#include "automation/object.h"

#include <utility>

#include "automation/coerce.h"
#include "automation/error.h"

namespace foliant::automation {
namespace {

class ItemsByNumber : public Enumeration {
  public:
    explicit ItemsByNumber(Value collection)
        : collection_(std::move(collection)), count_(to_int32(collection_.get("Count"))) {}

    std::optional<Value> next() override {
        if (given_ >= count_) return std::nullopt;
        Value item = collection_.get("Item", {given_ + 1});
        ++given_;
        return item;
    }

  private:
    Value collection_;
    std::int32_t count_;
    std::int32_t given_ = 0;
};

}  // namespace

std::unique_ptr<Subscription> Object::subscribe(EventSink&) {
    throw Error(RuntimeError::events_not_supported);
}

std::unique_ptr<Enumeration> Object::enumerate() {
    return std::make_unique<ItemsByNumber>(shared_from_this());
}

}  // namespace foliant::automation
