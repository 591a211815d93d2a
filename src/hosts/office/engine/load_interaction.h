#pragma once

#include <com/sun/star/task/XInteractionHandler.hpp>
#include <cppuhelper/implbase1.hxx>

#include "hosts/office/engine/document_loader.h"

namespace foliant::hosts::office {

/// Answers what LibreOffice asks while it loads a document: passwords from the ones that were given, and no
/// to everything else.
class LoadInteraction : public cppu::WeakImplHelper1<com::sun::star::task::XInteractionHandler> {
  public:
    explicit LoadInteraction(Passwords passwords);

    /// Whether the open password was asked for.
    bool password_was_asked() const noexcept { return password_was_asked_; }

    void SAL_CALL
    handle(const com::sun::star::uno::Reference<com::sun::star::task::XInteractionRequest>& request) override;

  private:
    Passwords passwords_;
    bool password_was_asked_ = false;
};

}  // namespace foliant::hosts::office
