#pragma once

#include <com/sun/star/lang/XComponent.hpp>

namespace foliant::hosts::office {

using DocumentModel = com::sun::star::uno::Reference<com::sun::star::lang::XComponent>;

/// Holds the layout of a document still while it is changed, so that it is done once.
class LayoutPause {
  public:
    explicit LayoutPause(const DocumentModel& document);
    LayoutPause(const LayoutPause&) = delete;
    LayoutPause& operator=(const LayoutPause&) = delete;
    ~LayoutPause();

  private:
    DocumentModel document_;
};

}  // namespace foliant::hosts::office
