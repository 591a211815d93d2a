#pragma once

#include <chrono>
#include <com/sun/star/task/XStatusIndicator.hpp>
#include <cppuhelper/implbase1.hxx>
#include <string>
#include <thread>

#include "hosts/machine.h"

namespace foliant::hosts::office {

/// What LibreOffice turns to while it loads or exports a document to say how far it is; passed on to the
/// machine, at most a few times a second and only from the thread that made this, since the machine knows no
/// other. What LibreOffice says in words, in the language of its user interface, is left out.
class ProgressRelay : public cppu::WeakImplHelper1<com::sun::star::task::XStatusIndicator> {
  public:
    /// `machine` outlives the work. `doing` is told in place of LibreOffice's words: "Opening".
    ProgressRelay(Machine& machine, std::string doing);

    void SAL_CALL start(const rtl::OUString& text, sal_Int32 range) override;
    void SAL_CALL end() override {}
    void SAL_CALL setText(const rtl::OUString&) override {}
    void SAL_CALL setValue(sal_Int32 value) override;
    void SAL_CALL reset() override {}

  private:
    Machine& machine_;
    std::string doing_;
    std::thread::id thread_ = std::this_thread::get_id();
    sal_Int32 range_ = 0;
    std::chrono::steady_clock::time_point next_{};
};

/// The same as the interface that LibreOffice takes.
com::sun::star::uno::Reference<com::sun::star::task::XStatusIndicator> relay_progress(Machine& machine,
                                                                                      std::string doing);

}  // namespace foliant::hosts::office
