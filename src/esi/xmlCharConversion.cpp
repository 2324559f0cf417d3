// xmlCharConversion.cpp - the fixed names of the conversions; the rules are in model/valueTexts.
#include "esi/xmlCharConversion.h"

bool xmlGetboolean(QChar* text)
{
    return toBool(QString(text, -1));
}

NMTOKEN xmlGetEnumNmtoken(QChar* text)
{
    return toToken(QString(text, -1));
}

QString xmlGetStringEnumNmtoken(NMTOKEN token)
{
    return tokenText(token);
}

std::uint32_t xmlGetuintString(QChar* text)
{
    return toUint(QString(text, -1));
}

std::int32_t xmlGetIntString(QChar* text)
{
    return toInt(QString(text, -1));
}

std::uint32_t xmlGetuintStringBigEnd(QChar* text)
{
    return toUintFromBytes(QString(text, -1));
}

QString xmlGetStringuint(std::uint32_t num)
{
    return hexNumber(num);
}
