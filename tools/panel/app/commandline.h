// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

/// What the panel is told when it is started.
struct Start
{
    QString catalogue; ///< The file to open; the sample beside the program where none is named.
    QString session;   ///< The session to play, empty for none.
    double speed = 1.0;
    int appearance = 0; ///< As `panel::Controller::Appearance`.
    int page = 0;
    QSize size;          ///< Not valid: as the window likes it.
    QString screenshots; ///< The folder for pictures, empty for none.
    bool measure = false;
    bool smoke = false;
};

/// What to say and how to end instead of starting.
struct Stop
{
    int status = 0;
    QString text; ///< For stdout where the status is 0, else for stderr.
};

/// Reads the words of a command line, the program's own name first. Nothing to stop for: `start` is filled.
std::optional<Stop> readCommandLine(const QStringList &words, Start &start);
