#include "support/clean_circuits.h"

#include "model/stock.h"

namespace pistaro {

namespace {

using Codes = std::vector<std::string>;

void Append(Codes& codes, const Codes& more) { codes.insert(codes.end(), more.begin(), more.end()); }

} // namespace

Project CleanCircuits::Next() {
    std::vector<Codes> tracks;
    for (int count = 1 + Below(3); count > 0; --count) {
        const int kind = Below(4);
        tracks.push_back(kind == 0 ? NincoTrack() : kind == 1 ? MixedTrack() : ScalextricTrack(CornerOf()));
    }
    return ProjectOf(tracks);
}

Project CleanCircuits::ProjectOf(const std::vector<Codes>& tracks) {
    Project project;
    project.Design.Room.Points = {
        {-9000, -9000, 0}, {9000, -9000, 1}, {9000, 9000, 1}, {-9000, 9000, 1}, {-9000, -9000, 1}};
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        Track& track = project.Design.Circuit.Tracks[i];
        track.ElementCodes = tracks[i];
        track.TrackStartX = static_cast<float>(-5000 + 4000 * static_cast<int>(i) + Below(500));
        track.TrackStartY = static_cast<float>(Below(1000) - 500);
        track.TrackStartHeading = static_cast<float>(Below(628)) / 100;
    }
    for (int row = 0; row < Pieces().Count(); ++row)
        project.Stock.Of(row).OwnedCount = 999;
    return project;
}

Project CleanCircuits::NextWithInnerCurves(int more) {
    Codes side1{"C277", "C367"};
    Codes side2{"C159", "C159"};
    for (int i = 0; i < more; ++i) {
        side1.push_back("C160");
        side2.push_back("C160");
    }
    return ProjectOf({Closed(side1, side2, {}, Below(2) == 0 ? Codes{"C156"} : Codes{"C152", "C152"}, "C8006")});
}

/// The pieces of a quarter turn, without their hand.
Codes CleanCircuits::CornerOf() {
    switch (Below(4)) {
    case 0:
        return {"C151", "C151"};
    case 1:
        return {"C153", "C153", "C153", "C153"};
    case 2:
        return {"C154", "C151", "C154"};
    default:
        return {"C153", "C151", "C153"};
    }
}

/// Two long sides and two short ones, all turning one way: a change-over before each half turn balances the lanes.
Codes CleanCircuits::Closed(const Codes& side1, const Codes& side2, const Codes& shortSide, const Codes& corner,
                            const std::string& changeOver) {
    Codes codes;
    const std::string hand = Below(2) == 0 ? "L" : "R";
    const auto turn = [&] {
        for (const std::string& code : corner)
            codes.push_back(code + hand);
    };
    for (const Codes& side : {side1, side2}) {
        Append(codes, side);
        codes.push_back(changeOver);
        turn();
        Append(codes, shortSide);
        turn();
    }
    return codes;
}

Codes CleanCircuits::ScalextricTrack(const Codes& corner) {
    const Codes straights{"C160", "C164", "C8005", "C248", "C160"};
    const auto straight = [&] { return straights[static_cast<std::size_t>(Below(5))]; };
    Codes side1{"C158", "C277", "C367", "C160", "C8007"};
    Codes side2{"C158", "C159", "C159", straight(), straight()};
    for (int extension = Below(2); extension >= 0; --extension) {
        side1.push_back("C8009");
        side2.push_back(straight());
    }
    side1.push_back("C8007");
    side2.push_back(straight());
    for (int more = Below(3); more > 0; --more) {
        side1.push_back(straight());
        side2.push_back("C160");
    }
    return Closed(side1, side2, Codes(static_cast<std::size_t>(Below(3)), "C160"), corner, "C8006");
}

Codes CleanCircuits::NincoTrack() {
    const Codes side(static_cast<std::size_t>(1 + Below(6)), "N10102");
    const Codes corner = Below(2) == 0 ? Codes{"N10105", "N10105"} : Codes{"N10107", "N10107", "N10105"};
    return Closed(side, side, Codes(static_cast<std::size_t>(1 + Below(3)), "N10103"), corner, "N10111");
}

/// One long side leads over Ninco track: 280 cm on both.
Codes CleanCircuits::MixedTrack() {
    const Codes side1{"N10110", "N10102", "N10102", "N10102", "N10102", "N10102", "N10102", "N10110"};
    const Codes side2{"C277", "C367", "C160", "C160", "C160", "C160", "C160", "C160", "C160"};
    return Closed(side1, side2, {"C160"}, CornerOf(), "C8006");
}

} // namespace pistaro
