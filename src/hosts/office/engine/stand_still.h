#pragma once

namespace foliant::hosts::office {

/// Keeps LibreOffice's own thread still while one of these exists. That thread works for people who look at a
/// document: it paints pages that nobody sees, counts words and collects them for completion. All of it takes
/// longer than printing does, and the work here would have to wait for it.
///
/// To be destroyed on the thread that made it; UNO calls on other threads wait meanwhile.
class StandStill {
  public:
    /// Looks LibreOffice's lock up in its library (a handle of dlopen). Where it is not found objects of this
    /// class do nothing, and everything works, more slowly.
    static void prepare(void* library);

    StandStill();
    StandStill(const StandStill&) = delete;
    StandStill& operator=(const StandStill&) = delete;
    ~StandStill();
};

}  // namespace foliant::hosts::office
