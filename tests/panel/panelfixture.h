// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "app/controller.h"

#include <QtCore/QCoreApplication>
#include <QtTest/QTest>

inline QString sampleCatalogue()
{
    return qEnvironmentVariable("ZRSUPPLY_TEST_CATALOGUE");
}

/// Of the sources.
inline QString sourcePath(const QString &relative)
{
    return qEnvironmentVariable("ZRSUPPLY_TEST_SOURCES") + u'/' + relative;
}

/// A panel with the sample catalogue open, without a window.
class PanelFixture
{
public:
    PanelFixture() { m_panel.openCatalogue(sampleCatalogue()); }

    panel::Controller *operator->() { return &m_panel; }
    panel::Controller &operator*() { return m_panel; }

    /// The banner about `subject`; an empty one where there is none.
    panel::Banner banner(const QString &subject)
    {
        for (const panel::Banner &one : m_panel.banners()->rows()) {
            if (one.subject == subject)
                return one;
        }
        return {};
    }
    /// What the log holds of a kind.
    QStringList logged(const QString &kind)
    {
        QStringList texts;
        for (const panel::LogRow &row : m_panel.log()->rows()) {
            if (row.kind == kind)
                texts.append(row.text);
        }
        return texts;
    }
    /// The names of the signals that the log holds, in order.
    QStringList signalNames()
    {
        QStringList names;
        for (const QString &text : logged(QStringLiteral("signal")))
            names.append(text.section(u' ', 0, 0));
        return names;
    }

private:
    panel::Controller m_panel;
};
