#include "hosts/office/engine/stand_still.h"

#include <dlfcn.h>

namespace foliant::hosts::office {

namespace {

// Application::AcquireSolarMutex and Application::ReleaseSolarMutex; the latter lets go of every hold at
// once.
void (*acquire)(unsigned) = nullptr;
unsigned (*release_all)() = nullptr;

// Holds are counted here, because letting go of one would mean to let go of all, and the other thread to get
// its turn.
int holds = 0;

}  // namespace

void StandStill::prepare(void* library) {
    acquire = reinterpret_cast<void (*)(unsigned)>(dlsym(library, "_ZN11Application17AcquireSolarMutexEj"));
    release_all = reinterpret_cast<unsigned (*)()>(dlsym(library, "_ZN11Application17ReleaseSolarMutexEv"));
    if (release_all == nullptr) acquire = nullptr;
}

StandStill::StandStill() {
    if (acquire != nullptr && holds++ == 0) acquire(1);
}

StandStill::~StandStill() {
    if (acquire != nullptr && --holds == 0) release_all();
}

}  // namespace foliant::hosts::office
