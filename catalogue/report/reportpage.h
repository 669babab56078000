// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "report/reportdata.h"

namespace zrsupply {

/// The report as one HTML page that needs nothing else: style and script are in it, pictures are data. Whatever comes
/// from the catalogue is escaped, pictures are shown by `img`, which runs no scripts, and the page's own policy
/// forbids any script but its own. `fileName` is what the page calls the catalogue where the catalogue has no name.
QByteArray reportPage(const ReportData &data, const QString &fileName);

} // namespace zrsupply
