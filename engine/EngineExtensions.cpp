#include "EngineExtensions.h"

#include <QString>

#include "EngineTypes.h"

namespace {
// Sentence ends: after one of these and white space, the next letter starts a sentence.
bool endsSentence(QChar c) { return c == u'.' || c == u'!' || c == u'?'; }

QString transform(const QString& in, int mode) {
    QString out;
    out.reserve(in.size());
    bool atSentenceStart = true;   // the selection's first letter starts a sentence
    bool sawSentenceEnd = false;
    bool inWord = false;
    for (qsizetype i = 0; i < in.size();) {
        // Work on whole code points so that letters outside the basic plane keep their pairs.
        char32_t cp = in.at(i).unicode();
        qsizetype units = 1;
        if (QChar::isHighSurrogate(cp) && i + 1 < in.size() && in.at(i + 1).isLowSurrogate()) {
            cp = QChar::surrogateToUcs4(in.at(i), in.at(i + 1));
            units = 2;
        }
        QString piece = in.mid(i, units);
        const bool letter = QChar::isLetter(cp);
        switch (mode) {
            case SCI_CASE_UPPER: piece = piece.toUpper(); break;
            case kCaseLower: piece = piece.toLower(); break;
            case SCI_CASE_INVERT:
                if (QChar::isUpper(cp)) piece = piece.toLower();
                else if (QChar::isLower(cp) || QChar::isTitleCase(cp)) piece = piece.toUpper();
                break;
            case SCI_CASE_SENTENCE:
                if (letter) {
                    piece = atSentenceStart ? piece.toUpper() : piece.toLower();
                    atSentenceStart = false;
                    sawSentenceEnd = false;
                } else if (units == 1 && endsSentence(QChar(cp))) {
                    sawSentenceEnd = true;
                } else if (QChar::isSpace(cp) && sawSentenceEnd) {
                    atSentenceStart = true;
                }
                break;
            case SCI_CASE_CAPITALISE: {
                const bool wordChar = letter || QChar::isDigit(cp) || QChar::isMark(cp) || cp == U'\'' || cp == U'_';
                if (letter) piece = inWord ? piece.toLower() : piece.toUpper();
                inWord = wordChar;
                break;
            }
            default: break;
        }
        out += piece;
        i += units;
    }
    return out;
}

bool isValidUtf8(std::string_view text) {
    QString round = QString::fromUtf8(text.data(), qsizetype(text.size()));
    QByteArray back = round.toUtf8();
    return std::string_view(back.constData(), size_t(back.size())) == text;
}
}  // namespace

std::string ChangeCaseUtf8(std::string_view text, int mode) {
    if (mode < int(SCI_CASE_UPPER) || mode > kCaseLower) return std::string(text);
    // Text that is not valid UTF-8 cannot be changed safely: keep it byte for byte.
    if (!isValidUtf8(text)) return std::string(text);
    QByteArray utf8 = transform(QString::fromUtf8(text.data(), qsizetype(text.size())), mode).toUtf8();
    return std::string(utf8.constData(), size_t(utf8.size()));
}
