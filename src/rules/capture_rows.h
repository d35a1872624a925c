// The captures found in one generator call, the totals kept on the way, and the filters that decide which stand.
//
// The rows lie in a table given by the caller: the state's own, or a local one for the legal-move test, which must
// leave a running generator's rows alone.
#pragma once

#include "rules/move_writer.h"
#include "rules/state.h"

#include <algorithm>
#include <cstdlib>

namespace zonterbrook::rules {

/// True if `Path` is a beginning of `Whole`, or all of it.
inline bool IsPrefix(const CapturePath& Path, const CapturePath& Whole) {
    return Path.Count <= Whole.Count && std::equal(Path.Groups, Path.Groups + Path.Count, Whole.Groups);
}

/// The same captures in ascending order of their cells.
inline CapturePath SortedByCell(const CapturePath& Path) {
    CapturePath Sorted = Path;
    std::sort(Sorted.Groups, Sorted.Groups + Sorted.Count,
              [](const CaptureGroup& A, const CaptureGroup& B) { return A.Cell < B.Cell; });
    return Sorted;
}

/// Rows and totals of one call.
class CaptureRowList {
public:
    static constexpr int LastCapLimit = 100;

    explicit CaptureRowList(CaptureTable& InTable) : Table(InTable) { Table.Count = 0; }

    int Count() const { return Table.Count; }
    /// Pieces in the longest capture so far.
    int Longest() const { return L; }

    /// Notes that the path now being walked began with a jump over the piece that moved last. Only the first row that
    /// comes of it is meant.
    void NoteLastCap() { LastCapRows[LastCapCount++] = Table.Count; }
    bool HasLastCap() const { return LastCapCount > 0; }

    /// The totals are kept as far as the rules ask for them.
    template <typename Rules>
    void Store(const Rules& Rule, int Source, int Dest, bool Promotes, std::int32_t Piece, int PathLongest,
               const CapturePath& Text) {
        CaptureRowFields& Row = Table.Rows[Table.Count];
        Row.Source = Source;
        Row.Dest = Dest;
        Row.Piece = Piece;
        Row.Promotes = Promotes ? 1 : 0;
        Row.LongestPath = static_cast<std::uint8_t>(PathLongest);
        Row.Text = Text;
        ++Table.Count;
        Kings = Text.Kings;
        L = std::max<int>(L, Text.Count);
        if (Rule.Is.MaxCapMoveKings) {
            MostKings[Text.Count] = std::max(MostKings[Text.Count], Text.Kings);
        }
        if (Rule.Is.KingsLengthCounts || Rule.Is.KingFirstOnly) {
            Best = Piece > 0 ? std::max(Best, Piece) : std::min(Best, Piece);
            int& ByKind = LongestByKind[std::abs(Piece)];
            ByKind = std::max<int>(ByKind, Text.Count);
        }
    }

    /// True if a row with these ends and exactly this text is there.
    bool Has(int Source, int Dest, const CapturePath& Text) const {
        for (int I = Table.Count - 1; I >= 0 && Table.Rows[I].Source == Source; --I) {
            if (Table.Rows[I].Dest == Dest && Table.Rows[I].Text == Text) {
                return true;
            }
        }
        return false;
    }

    /// Runs the filters over the rows in order and gives each that stands to `Keep`, until one answers true.
    /// `Shown` is the table in which the rule `LastCap` clears the texts that it drops.
    template <typename Rules, typename Sink>
    bool Filter(const Rules& Rule, CaptureTable& Shown, Sink&& Keep) {
        if (Rule.Is.KingsLengthCounts && std::abs(Best) == 2) {
            L = LongestByKind[2];
        }
        for (int I = 0; I < Table.Count; ++I) {
            CaptureRowFields& Row = Table.Rows[I];
            if (Rule.Is.EveryPrefix) {
                ClearRepeats(I);
            }
            if (Rule.Is.KingsFinish && IsKing(Row.Piece) && Row.Text.Count != Row.LongestPath) {
                Row.Text.Count = 0;
            }
            if (Rule.Is.LastCap && LastCapCount > 0 && !IsLastCapRow(I)) {
                Shown.Rows[I].Text.Count = 0;
            }
            if (Row.Text.Count == 0 || (Rule.Is.MaxCapMove && Row.Text.Count != L) ||
                (Rule.Is.MaxCapMoveKings && Row.Text.Kings != MostKings[L]) ||
                (Rule.Is.KingFirstOnly && Row.Piece != Best)) {
                continue;
            }
            if (Keep(Row)) {
                return true;
            }
        }
        return false;
    }

    /// For the message of a fault: the kings counted last and the longest capture.
    int KingsCounted() const { return Kings; }

private:
    void ClearRepeats(int First) {
        const CaptureRowFields& Row = Table.Rows[First];
        for (int I = First + 1; I < Table.Count; ++I) {
            CaptureRowFields& Later = Table.Rows[I];
            if (Later.Source == Row.Source && Later.Dest == Row.Dest && Later.Promotes == Row.Promotes &&
                Later.Piece == Row.Piece && Later.Text == Row.Text) {
                Later.Text.Count = 0;
            }
        }
    }

    bool IsLastCapRow(int Row) const {
        return std::find(LastCapRows.begin(), LastCapRows.begin() + LastCapCount, Row) !=
               LastCapRows.begin() + LastCapCount;
    }

    CaptureTable& Table;
    int L = 0;
    std::int32_t Best = 0; ///< the strongest mover that stored a row
    int Kings = 0;
    int LastCapCount = 0;
    base::CheckedArray<int, 3> LongestByKind{};
    base::CheckedArray<std::uint8_t, CaptureLevels + 1> MostKings{};
    base::CheckedArray<int, LastCapLimit> LastCapRows;
};

/// Takes captures to the stack as they are found, for a rule set without filters.
class CaptureStack {
public:
    explicit CaptureStack(MoveWriter& InWriter) : Writer(InWriter) {}

    int Longest() const { return 0; }
    void NoteLastCap() {}
    bool Has(int, int, const CapturePath&) const { return false; }

    template <typename Rules>
    void Store(const Rules&, int Source, int Dest, bool Promotes, std::int32_t, int, const CapturePath& Text) {
        if (Promotes) {
            Writer.RegisterPromotion(Source, Dest, Text);
        } else {
            Writer.RegisterCaptureMove(Source, Dest, Text);
        }
    }

private:
    MoveWriter& Writer;
};

} // namespace zonterbrook::rules
