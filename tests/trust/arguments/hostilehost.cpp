// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hostilehost.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>

using namespace Qt::Literals::StringLiterals;
using namespace metamethods;

namespace {

QByteArray hashOf(const FixtureCatalogue &catalogue)
{
    return QCryptographicHash::hash(catalogue.bytes(), QCryptographicHash::Sha256);
}

bool isSetup(const QMetaMethod &method)
{
    return method.name() == "setup";
}

/// A value that has a row.
QString harmlessText(const QByteArray &parameter)
{
    return parameter.contains("ibbon") ? u"RIB-TWO"_s : u"CONT-4"_s;
}

} // namespace

QString TextPlace::name() const
{
    return u"%1/%2.%3"_s.arg(QString::fromLatin1(method().name()), QString::number(method().parameterCount()),
                             QString::fromLatin1(method().parameterNames().at(parameter)));
}

HostileHost::HostileHost()
    : m_formerFolder(QDir::currentPath())
    , m_hash(hashOf(m_catalogue))
    , m_watch(QFileInfo(m_catalogue.path()).canonicalFilePath())
{
    if (!QDir::setCurrent(m_emptyFolder.path()) || !m_database.setup(m_catalogue.path()) ||
        m_database.supplyMaterial(u"CONT-4"_s) != 1)
        qFatal("the catalogue does not answer");
}

HostileHost::~HostileHost()
{
    QDir::setCurrent(m_formerFolder);
}

QList<TextPlace> HostileHost::places()
{
    QList<TextPlace> places;
    for (const int index : slotcall::takingText()) {
        const QMetaMethod method = methodAt(index);
        for (int parameter = 0; !isSetup(method) && parameter < method.parameterCount(); ++parameter) {
            if (slotcall::carriesText(method.parameterMetaType(parameter)))
                places.append({index, parameter});
        }
    }
    return places;
}

QList<int> HostileHost::users()
{
    QList<int> indices;
    for (int index = signalCount; index < methodCount; ++index) {
        if (methodAt(index).parameterCount() == 0)
            indices.append(index);
    }
    return indices;
}

QVariant HostileHost::hand(const TextPlace &place, const QString &text)
{
    const QByteArrayList names = place.method().parameterNames();
    const QVariantList arguments = slotcall::arguments(place.index, [&](int parameter) {
        return parameter == place.parameter ? text : harmlessText(names.at(parameter));
    });
    return slotcall::byIndex(m_database, place.index, arguments);
}

QString HostileHost::harm() const
{
    QStringList told;
    if (!m_watch.misdeeds().isEmpty())
        told.append(m_watch.misdeeds());
    if (hashOf(m_catalogue) != m_hash)
        told.append(u"the catalogue has other bytes"_s);
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    const QStringList beside = QFileInfo(m_catalogue.path()).dir().entryList(everything);
    if (beside.size() != 1)
        told.append(u"beside the catalogue: "_s + beside.join(u' '));
    const QStringList made = QDir(m_emptyFolder.path()).entryList(everything);
    if (!made.isEmpty())
        told.append(u"in the working folder: "_s + made.join(u' '));
    return told.join(u"; "_s);
}
