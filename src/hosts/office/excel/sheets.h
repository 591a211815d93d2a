#pragma once

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/lang/XComponent.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <cstdint>
#include <string>

#include "hosts/office/engine/uno_support.h"

namespace foliant::hosts::office {

using WorkbookModel = css::uno::Reference<css::lang::XComponent>;
using Sheet = css::uno::Reference<css::sheet::XSpreadsheet>;

inline css::uno::Reference<css::container::XIndexAccess> sheets_of(const WorkbookModel& workbook) {
    const css::uno::Reference<css::sheet::XSpreadsheetDocument> document(workbook, css::uno::UNO_QUERY_THROW);
    return {document->getSheets(), css::uno::UNO_QUERY_THROW};
}

inline Sheet sheet_at(const WorkbookModel& workbook, std::int32_t number) {
    return {sheets_of(workbook)->getByIndex(number), css::uno::UNO_QUERY_THROW};
}

}  // namespace foliant::hosts::office
