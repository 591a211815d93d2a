#pragma once

#include <com/sun/star/lang/XComponent.hpp>

namespace foliant::hosts::office {

/// Gives all slides and their masters another size, in hundredths of a millimetre, and fits what is on them into
/// it: everything keeps its proportions and is centred; backgrounds fill the slides as before.
void resize_slides(const com::sun::star::uno::Reference<com::sun::star::lang::XComponent>& presentation,
                   sal_Int32 width, sal_Int32 height);

}  // namespace foliant::hosts::office
