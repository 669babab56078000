// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

class QQuickWindow;

namespace panel {

class Controller;

/// Milliseconds since the kernel started this process.
double processAgeMs();

/// Moves the roll's mileage from full to empty, a frame a step, and prints what the start and the frames took.
void measureFrames(Controller &controller, QQuickWindow &window, double startMs);

} // namespace panel
