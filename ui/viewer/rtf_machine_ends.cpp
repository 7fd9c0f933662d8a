// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/rtf_machine.h"

#include <algorithm>
#include <utility>

// What happens where something ends: a section, a text of its own, a picture, a field.
namespace kaloria::viewer {

namespace {
Edge EdgeOf(std::vector<Block> blocks) {
    return std::make_shared<const std::vector<Block>>(std::move(blocks));
}
} // namespace

void RtfMachine::EndSection() {
    if (stories_.size() > 1) {
        return;
    }
    constexpr std::size_t most = 2000;
    Current().End(Top().paragraph, Top().text, budget_);
    if (result_.sections.size() < most) {
        Section next = result_.sections.back(); // it goes on as before unless it says otherwise
        next.firstNumber = 0;
        result_.sections.push_back(std::move(next));
    }
    Current().section = result_.sections.size() - 1;
}

void RtfMachine::EndStory(const Group& closed) {
    Story story = std::move(stories_.back());
    stories_.pop_back();
    story.End(closed.paragraph, closed.text, budget_);
    Section& section = result_.sections.back();
    switch (story.GetKind()) {
    case Story::Kind::header:
        section.all.header = EdgeOf(std::move(story.blocks));
        break;
    case Story::Kind::footer:
        section.all.footer = EdgeOf(std::move(story.blocks));
        break;
    case Story::Kind::firstHeader:
        section.first.header = EdgeOf(std::move(story.blocks));
        break;
    case Story::Kind::firstFooter:
        section.first.footer = EdgeOf(std::move(story.blocks));
        break;
    default:
        Current().Insert(std::move(story.blocks));
    }
}

void RtfMachine::EndPicture(const Group& closed) {
    std::optional<Picture> picture = picture_.Decode();
    picture_ = {};
    const auto bytes = picture ? static_cast<std::size_t>(picture->image.sizeInBytes()) : 0;
    if (!picture || bytes > budget_.pictureBytes) {
        // A word tells more than a hole.
        TextLook look = closed.text;
        look.isItalic = true;
        look.color = QColor(Qt::gray);
        Current().AddText(QStringLiteral("[picture]"), look, budget_);
        return;
    }
    budget_.pictureBytes -= bytes;
    Current().AddPicture(static_cast<int>(result_.pictures.size()), closed.text, budget_);
    result_.pictures.push_back(std::move(*picture));
}

void RtfMachine::EndInstruction(const Group& closed) {
    FieldState& field = fields_[static_cast<std::size_t>(closed.field)];
    const QString name = field.instruction.trimmed().section(QLatin1Char(' '), 0, 0).toUpper();
    const Field kind = name == QLatin1String("PAGE")       ? Field::pageNumber
                       : name == QLatin1String("NUMPAGES") ? Field::pageCount
                                                           : Field::none;
    // In the text itself the number that the writer left there is shown: only headers and footers are made
    // anew for each sheet.
    field.isMadeUp = kind != Field::none && stories_.size() > 1;
    if (field.isMadeUp) {
        Current().AddField(kind, closed.text, budget_);
    }
}

RichText RtfMachine::Finish() {
    Flush();
    while (stories_.size() > 1) { // only in a document that breaks off
        EndStory(Top());
    }
    Current().End(Top().paragraph, Top().text, budget_);
    result_.blocks = std::move(Current().blocks);
    return std::move(result_);
}

} // namespace kaloria::viewer
