// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/rtf_words.h"
#include "ui/viewer/rtf_picture.h"
#include "ui/viewer/rtf_story.h"

#include <QByteArray>

#include <string>
#include <string_view>
#include <vector>

namespace kaloria::viewer {

/// Takes the tokens of an RTF document one after another. A state on a stack for each open group.
class RtfMachine {
public:
    explicit RtfMachine(Resources resources);

    /// @param bytes  the document that the token is of
    void Take(const rtf::Token& token, std::string_view bytes);
    [[nodiscard]] bool IsFull() const { return budget_.IsSpent(); }
    [[nodiscard]] RichText Finish();

private:
    enum class Destination { text, skipped, picture, instruction };

    struct Group {
        TextLook text;
        ParagraphLook paragraph;
        Destination destination = Destination::text;
        int fallbackLength = 1;
        int field = -1; ///< of fields_, that it is in
        bool isListText = false;
        // What its end means; not handed on to groups in it.
        bool endsStory = false;
        bool endsPicture = false;
        bool endsInstruction = false;
        bool endsListText = false;
    };

    struct FieldState {
        QString instruction;
        bool isMadeUp = false; ///< we write it ourselves, instead of its result
    };

    void Open();
    void Close();
    void TakeText(std::string_view text);
    void TakeByte(char byte);
    void TakeSymbol(char symbol);
    void TakeWord(const rtf::Token& word, bool isStarred);
    bool TakeDestination(const rtf::Token& word, rtf::WordRole role, bool isStarred);
    bool TakeGroupWord(const rtf::Token& word);
    bool BeginStory(std::string_view name);
    void TakeCharacter(const rtf::Token& word, const rtf::WordMeaning& meaning);
    bool TakeBreak(rtf::WordRole role, std::string_view name);
    bool TakeBorderWord(const rtf::Token& word);
    void TakeFormat(const rtf::Token& word);
    void TakeUnicode(const rtf::Token& word);
    void EndSection();
    void EndStory(const Group& closed);
    void EndPicture(const Group& closed);
    void EndInstruction(const Group& closed);
    void Flush();
    void Write(const QString& text);

    [[nodiscard]] Group& Top() { return groups_.back(); }
    [[nodiscard]] Story& Current() { return stories_.back(); }
    [[nodiscard]] bool IsText() const { return groups_.back().destination == Destination::text; }

    Resources resources_;
    RichText result_;
    Section defaults_;
    Budget budget_;
    std::vector<Group> groups_;
    std::vector<Story> stories_;
    std::vector<FieldState> fields_;
    PictureCollector picture_;
    std::string bytes_;           ///< of text, not decoded yet
    int fallbackLeft_ = 0;        ///< characters of a \u that we do not need
    bool isStarred_ = false;      ///< the token before was \*
    std::vector<Side> sides_;     ///< of the paragraph, which words of borders are about
    std::size_t listTextRun_ = 0; ///< where a list's number starts in its paragraph
};

} // namespace kaloria::viewer
