// PDN files: the same games are found however the text comes in, and each can be read, and read again once written.
#include "formats/pdn_finder.h"
#include "formats/pdn_game.h"
#include "formats/pdn_move.h"
#include "formats/pdn_writer.h"
#include "fuzzing.h"

namespace {

using namespace zonterbrook;

std::vector<formats::PdnPlace> Find(std::string_view Text, std::size_t Piece) {
    formats::PdnFinder Finder;
    do {
        while (Finder.Position() < Text.size()) {
            Finder.Feed(Text.substr(Finder.Position(), Piece));
        }
    } while (!Finder.Finish());
    return Finder.Take();
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* Bytes, std::size_t Size) {
    const std::string_view Text = fuzz::TextOf(Bytes, Size);
    const auto Whole = Find(Text, Text.size() + 1);
    const auto Pieces = Find(Text, 3);
    fuzz::Expect(Whole.size() == Pieces.size(), "the same games in pieces");
    for (std::size_t I = 0; I < Whole.size(); ++I) {
        fuzz::Expect(Whole[I].Offset == Pieces[I].Offset && Whole[I].End == Pieces[I].End, "at the same places");
        const auto Game = formats::ReadPdnGame(Text.substr(Whole[I].Offset, Whole[I].End - Whole[I].Offset));
        if (!Game.Document) {
            // Garbage with characters of code 0 may look like a game only beside what stands around it.
            fuzz::Expect(!Game.Error.Sentence.empty(), "a refusal says why");
            continue;
        }
        for (const formats::PdnHalfMove& Half : Game.Document->Moves) {
            formats::SplitPdnMove(Half.Text);
        }
        formats::WritePdnGame(*Game.Document, "01/02/2003");
    }
    return 0;
}
