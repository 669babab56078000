// SPDX-License-Identifier: LGPL-2.1-or-later
#include "cli/lineinput.h"

#include "cli/answer.h"
#include "cli/command.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

#include <histedit.h>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <sys/ioctl.h>
#include <unistd.h>

namespace zrsupply {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int historyLines = 1000;

bool isStandardInput(const QString &path)
{
    return path.isEmpty() || path == "-"_L1;
}

/// The part that all texts begin with.
QString commonStart(const QStringList &texts)
{
    QString start = texts.value(0);
    for (const QString &text : texts) {
        while (!text.startsWith(start))
            start.chop(1);
    }
    return start;
}

/// Columns of the terminal; a usual number where it does not tell.
qsizetype terminalColumns()
{
    winsize size = {};
    return ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

/// The texts below and beside each other, as many as the terminal takes.
QString inColumns(const QStringList &texts)
{
    qsizetype width = 0;
    for (const QString &text : texts)
        width = std::max(width, displayWidth(text) + 2);
    const qsizetype perLine = std::max<qsizetype>(1, terminalColumns() / width);
    QString lines;
    for (qsizetype i = 0; i < texts.size(); ++i) {
        const bool last = (i + 1) % perLine == 0 || i + 1 == texts.size();
        lines += last ? texts[i] + u'\n' : padded(texts[i], width);
    }
    return lines;
}

const char *prompt(EditLine *)
{
    return "zrsupply> ";
}

/// Where the lines that were typed are kept; empty where no folder can be made for them.
QByteArray historyFile()
{
    QString folder = qEnvironmentVariable("XDG_STATE_HOME");
    if (folder.isEmpty())
        folder = QDir::homePath() + u"/.local/state"_s;
    if (!QDir().mkpath(folder + u"/zrsupply"_s))
        return {};
    return QFile::encodeName(folder + u"/zrsupply/history"_s);
}

} // namespace

bool isTerminalInput(const QString &path)
{
    return isStandardInput(path) && ::isatty(STDIN_FILENO) != 0 && ::isatty(STDOUT_FILENO) != 0;
}

FileInput::FileInput(const QString &path)
    : m_file(path)
{
    if (isStandardInput(path)) {
        if (m_file.open(stdin, QIODevice::ReadOnly))
            return;
    } else if (QFileInfo(path).isDir()) {
        throw Failure{Status::Failed,
                      u"%1 is a folder, not a session file"_s.arg(path),
                      u"name a file, or - for standard input"_s,
                      {}};
    } else if (m_file.open(QIODevice::ReadOnly)) {
        return;
    }
    throw Failure{Status::Failed,
                  u"%1 cannot be read: %2"_s.arg(path, m_file.errorString()),
                  u"name a session file, or - for standard input"_s,
                  {}};
}

std::optional<QString> FileInput::next()
{
    const QByteArray line = m_file.readLine();
    if (line.isEmpty())
        return {};
    QString text = QString::fromUtf8(line);
    while (text.endsWith(u'\n') || text.endsWith(u'\r'))
        text.chop(1);
    return text;
}

/// The line-editing library's own state.
struct TerminalInput::Editor
{
    explicit Editor(Completer how);
    ~Editor();
    Q_DISABLE_COPY_MOVE(Editor)

    static unsigned char complete(EditLine *line, int key);
    void remember(const char *text);

    Completer completer;
    EditLine *line;
    History *history;
    HistEvent event = {};
    QByteArray file;
};

TerminalInput::Editor::Editor(Completer how)
    : completer(std::move(how))
    , line(nullptr)
    , history(nullptr)
    , file(historyFile())
{
    // Letters beyond ASCII are edited as the terminal shows them.
    std::setlocale(LC_CTYPE, "");
    line = el_init("zrsupply", stdin, stdout, stderr);
    history = history_init();
    if (line == nullptr || history == nullptr) {
        throw Failure{Status::Failed,
                      u"the terminal cannot be edited on"_s,
                      u"give the events in a file or by a pipe: zrsupply session -"_s,
                      {}};
    }
    ::history(history, &event, H_SETSIZE, historyLines);
    ::history(history, &event, H_SETUNIQUE, 1);
    if (!file.isEmpty())
        ::history(history, &event, H_LOAD, file.constData());
    el_set(line, EL_CLIENTDATA, this);
    el_set(line, EL_PROMPT, prompt);
    el_set(line, EL_SIGNAL, 1);
    el_set(line, EL_HIST, ::history, history);
    el_set(line, EL_EDITOR, "emacs");
    // The wide form: the narrow one keeps copies of both texts that nobody frees.
    el_wset(line, EL_ADDFN, L"complete", L"Complete the word", &Editor::complete);
    el_set(line, EL_BIND, "^I", "complete", nullptr);
    el_set(line, EL_BIND, "^R", "em-inc-search-prev", nullptr);
    // A person's own bindings, as in every program of this kind.
    el_source(line, nullptr);
}

TerminalInput::Editor::~Editor()
{
    if (history != nullptr)
        history_end(history);
    if (line != nullptr)
        el_end(line);
}

void TerminalInput::Editor::remember(const char *text)
{
    ::history(history, &event, H_ENTER, text);
    // At once, so that nothing is lost when the session is interrupted.
    if (!file.isEmpty())
        ::history(history, &event, H_SAVE, file.constData());
}

unsigned char TerminalInput::Editor::complete(EditLine *line, int)
{
    Editor *self = nullptr;
    el_get(line, EL_CLIENTDATA, &self);
    const LineInfo *info = el_line(line);
    const QString before = QString::fromUtf8(info->buffer, info->cursor - info->buffer);
    const qsizetype begin = before.lastIndexOf(u' ') + 1;
    const QStringList candidates = self->completer(before);
    if (candidates.isEmpty())
        return CC_REFRESH_BEEP;

    const QString common = commonStart(candidates);
    QString rest = common.mid(before.size() - begin);
    if (candidates.size() == 1 && !common.endsWith(u'/'))
        rest += u' ';
    if (!rest.isEmpty()) {
        el_insertstr(line, rest.toUtf8().constData());
        return CC_REFRESH;
    }
    std::fputs((u'\n' + inColumns(candidates)).toUtf8().constData(), stdout);
    return CC_REDISPLAY;
}

TerminalInput::TerminalInput(Completer completer)
    : m_editor(std::make_unique<Editor>(std::move(completer)))
{
}

TerminalInput::~TerminalInput() = default;

std::optional<QString> TerminalInput::next()
{
    int length = 0;
    const char *bytes = el_gets(m_editor->line, &length);
    if (bytes == nullptr || length <= 0) {
        // The end of the input stands in the line of the prompt.
        std::fputc('\n', stdout);
        return {};
    }
    const QString text = QString::fromUtf8(bytes, length).trimmed();
    if (!text.isEmpty())
        m_editor->remember(bytes);
    return text;
}

} // namespace zrsupply
