// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TranslationFile.h"

#include <QFile>
#include <QXmlStreamReader>

#include <stdexcept>

namespace {

void readTranslation(QXmlStreamReader& xml, TranslatedText& text)
{
    text.isFinished = xml.attributes().value("type") != "unfinished";
    if (!text.hasPlural) {
        text.translations << xml.readElementText();
        return;
    }
    while (xml.readNextStartElement())
        text.translations << xml.readElementText();
}

TranslatedText readMessage(QXmlStreamReader& xml, QString const& context)
{
    TranslatedText text;
    text.context = context;
    text.hasPlural = xml.attributes().value("numerus") == "yes";
    while (xml.readNextStartElement()) {
        if (xml.name() == "source")
            text.source = xml.readElementText();
        else if (xml.name() == "translation")
            readTranslation(xml, text);
        else
            xml.skipCurrentElement();
    }
    return text;
}

}  // namespace

std::vector<TranslatedText> readTranslationFile(QString const& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error((path + ": " + file.errorString()).toStdString());
    std::vector<TranslatedText> texts;
    QXmlStreamReader xml(&file);
    QString context;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == "name")
            context = xml.readElementText();
        else if (xml.isStartElement() && xml.name() == "message")
            texts.push_back(readMessage(xml, context));
    }
    if (xml.hasError())
        throw std::runtime_error((path + ": " + xml.errorString()).toStdString());
    return texts;
}
