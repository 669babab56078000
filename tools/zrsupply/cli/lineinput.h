// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace zrsupply {

/// Where a session's lines come from.
class LineInput
{
public:
    LineInput() = default;
    virtual ~LineInput() = default;
    Q_DISABLE_COPY_MOVE(LineInput)

    /// The next line without its end; nothing at the end of the input.
    virtual std::optional<QString> next() = 0;
};

/// A file, or what is piped in: each line as soon as it is there.
class FileInput : public LineInput
{
public:
    /// `path`: a file, "-" or empty for standard input. Throws when it cannot be read.
    explicit FileInput(const QString &path);

    std::optional<QString> next() override;

private:
    QFile m_file;
};

/// A person at a terminal, with a prompt, a history that outlives the session, and completion by the tab key.
class TerminalInput : public LineInput
{
public:
    /// What the end of a line can become; an entry that ends in a slash is no whole word yet.
    using Completer = std::function<QStringList(const QString &line)>;

    explicit TerminalInput(Completer completer);
    ~TerminalInput() override;

    std::optional<QString> next() override;

private:
    struct Editor;
    std::unique_ptr<Editor> m_editor;
};

/// Whether a person types the lines and reads what comes back.
bool isTerminalInput(const QString &path);

} // namespace zrsupply
