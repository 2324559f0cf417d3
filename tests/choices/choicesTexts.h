// choicesTexts.h - choices files as a test writes them down.
#pragma once

#include <QByteArray>

/// A choices file with these devices.
inline QByteArray choicesWith(const QByteArray& devices)
{
    return "{\"format\": \"kinetra-choices\", \"version\": 1, \"devices\": [" + devices + "]}";
}

/// A choices file with one device, the first one, and these members.
inline QByteArray choicesOfFirst(const QByteArray& members)
{
    return choicesWith("{\"device\": 1" + (members.isEmpty() ? QByteArray() : ", " + members) + '}');
}
