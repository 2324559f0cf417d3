// tracedExport.h - the choices that the command finds for an export.
#pragma once

#include "cli/choicesParts.h"

/// Asks in a folder for the choices that made a KTL file, which is "m.ktl" there.
/// @param esiFiles  as the command gets them; relative ones are in the folder
inline CommandRun choicesFrom(const Workplace& place, const QStringList& esiFiles, const QByteArray& ktl,
                              const QStringList& options = {})
{
    place.make(QStringLiteral("m.ktl"), ktl);
    return runHere(QStringList{"choices"} + esiFiles + QStringList{"--from", "m.ktl"} + options, place.folder());
}

/// The bytes of an export, of samples by their names without the ending; empty if there was an error.
inline QByteArray exportOf(const QStringList& samples, const QByteArray& choices = {})
{
    QStringList paths;
    for (const QString& name : samples)
        paths += sample(name + QStringLiteral(".xml"));
    return converted(paths, choices).ktl;
}
