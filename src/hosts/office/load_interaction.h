#pragma once

#include <com/sun/star/task/XInteractionHandler.hpp>
#include <cppuhelper/implbase1.hxx>
#include <string>

namespace foliant::hosts {

/// Answers what LibreOffice asks while it loads a document: passwords from the ones that were given, and no
/// to everything else. Afterwards it knows why a load came to nothing.
class LoadInteraction : public cppu::WeakImplHelper1<com::sun::star::task::XInteractionHandler> {
  public:
    LoadInteraction(std::string open_password, std::string write_password);

    bool password_was_asked() const noexcept { return password_was_asked_; }
    bool password_was_refused() const noexcept { return password_was_refused_; }

    void SAL_CALL
    handle(const com::sun::star::uno::Reference<com::sun::star::task::XInteractionRequest>& request) override;

  private:
    std::string open_password_;
    std::string write_password_;
    bool password_was_asked_ = false;
    bool password_was_refused_ = false;
};

}  // namespace foliant::hosts
