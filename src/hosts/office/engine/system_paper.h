#pragma once

namespace foliant::hosts::office {

enum class Paper { letter, a4 };

/// The paper of this machine, for documents that name none: what the variable PAPERSIZE says, else
/// /etc/papersize, else what is usual where the locale for paper (LC_PAPER) is spoken. Of all kinds there are
/// only those two here.
Paper system_paper();

/// The paper of the country of the environment's locale; A4 where that is not installed.
Paper paper_of_locale();

}  // namespace foliant::hosts::office
