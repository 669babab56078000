// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>

#include <memory>

/// The only thing that the host knows of the library: it makes an object.
std::unique_ptr<QObject> makeSupplies();
