#pragma once

#include "command.h"

#include <optional>

namespace zrsupply {

/// What the first hundred bytes of an SQLite file and the files beside it tell before the file is opened: a header
/// that is none, a file cut short, a journal mode or a schema version that cannot be used. Nothing when all is well.
std::optional<Failure> headerProblem(const QString &path);

} // namespace zrsupply
