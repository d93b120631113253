// A small faulty circuit for each rule of the checks, photographed as the drawing marks it.
#include "photograph_rules.h"

#include "checks/check.h"
#include "checks/rules.h"
#include "layout/ground.h"
#include "storage/settings_file.h"
#include "ui/circuit_view.h"
#include "ui/findings_overlay.h"

#include <QApplication>

#include <algorithm>
#include <iostream>
#include <map>
#include <sstream>

namespace pistaro {

namespace {

class SilentUser : public Prompts {
public:
    void Tell(const Message&) override {}
    Answer Ask(const std::string&, Buttons) override { return Answer::Ok; }
    std::optional<std::filesystem::path> ChooseFile(const FileChoice&) override { return std::nullopt; }
};

std::vector<std::string> CodesIn(const std::string& text) {
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), std::istream_iterator<std::string>()};
}

const std::string HalfTurn = " C151R C151R C151R C151R ";

/// The pieces of track 1 that break each rule.
const std::map<std::string, std::string> Scenes{
    {"unknown-code", "C160 C999 C151L C160"},
    {"open-track", "C151L C151L C151L C151L C151L C151L C151L"},
    {"unconverted-joint", "C160 N10102 C160"},
    {"reversed-adapter", "C160 N10110 C160"},
    {"overlap", "C151L C151L C151L C151L C151L C151L C151L C151L C160"},
    {"outside-room", "C160" + HalfTurn + "C160" + HalfTurn},
    {"odd-change-overs", "C8006" + HalfTurn + "C160" + HalfTurn},
    {"chicane-partner", "C160 C8007 C8009 C160"},
    {"chicane-stranger", "C8007 C160 C8009 C8007"},
    {"lanes-differ", "C160" + HalfTurn + "C160" + HalfTurn},
    {"near-wall", "C160" + HalfTurn + "C160" + HalfTurn},
    {"near-track", "C160 C151L C151L C160"},
    {"fast-corner", "C160 C160 C160 C160 C160 C160 C160 C160 C156L C156L"},
    {"lap-counter", "C277 C160 C151R C277"},
    {"start-section", "C367 C160 C151R C367"},
    {"not-owned", "C160" + HalfTurn + "C160" + HalfTurn},
    {"unused-special", "C160" + HalfTurn + "C160" + HalfTurn},
};

/// What a scene has beside its pieces.
void Furnish(const Catalogue& catalogue, const std::string& rule, Project& project) {
    const auto own = [&](const char* code, int count) {
        project.Stock.Of(catalogue.FindHeadRow(code)).OwnedCount = static_cast<std::int16_t>(count);
    };
    own("C160", 99);
    own("C151", 99);
    if (rule == "not-owned") own("C151", 5);
    if (rule == "unused-special") {
        own("C160", 1);
        own("C164", 1);
    }
    if (rule == "outside-room")
        project.Design.Room.Points = {{-20, -60, 0}, {70, -60, 1}, {70, 100, 1}, {-20, 100, 1}, {-20, -60, 1}};
    if (rule == "near-wall")
        project.Design.Room.Points = {{-30, -60, 0}, {78, -60, 1}, {78, 100, 1}, {-30, 100, 1}, {-30, -60, 1}};
    if (rule == "near-track") {
        Track& other = project.Design.Circuit.Tracks[1];
        other.ElementCodes = CodesIn("C160 C160 C160");
        other.TrackStartX = 20.5F;
    }
}

/// Has the view show all that lies there.
void ShowAll(const Catalogue& catalogue, Design& design) {
    GroundBox box{1e9, -1e9, 1e9, -1e9};
    const auto include = [&](double left, double right, double bottom, double top) {
        box = {std::min(box.Left, left), std::max(box.Right, right), std::min(box.Bottom, bottom),
               std::max(box.Top, top)};
    };
    for (const Track& track : design.Circuit.Tracks) {
        WalkTrack(catalogue, track, [&](int, const PiecePlacement* placement, const BuildCursor&) {
            if (placement == nullptr) return;
            const GroundBox ground = GroundOf(*placement).Box;
            include(ground.Left, ground.Right, ground.Bottom, ground.Top);
        });
    }
    for (const RoomPoint& point : design.Room.Points)
        include(point.X, point.X, point.Y, point.Y);
    constexpr double margin = 8; // cm
    design.View.MidX = static_cast<float>((box.Left + box.Right) / 2);
    design.View.MidY = static_cast<float>((box.Bottom + box.Top) / 2);
    design.View.Width = static_cast<float>(std::max({box.Right - box.Left, box.Top - box.Bottom, 60.0}) + 2 * margin);
}

void PhotographRule(const Catalogue& catalogue, const std::string& rule, const QString& file) {
    SilentUser user;
    Session session(catalogue, user, StartUp(InitialSettings(catalogue)), "");
    Project& project = session.Project;
    project.Design.Circuit.Tracks[0].ElementCodes = CodesIn(Scenes.at(rule));
    Furnish(catalogue, rule, project);
    ShowAll(catalogue, project.Design);
    const std::vector<Finding> findings =
        CheckDesign(catalogue, project.Design, project.Stock, project.Preferences.Units);
    const auto found = std::ranges::find(findings, rule, &Finding::Rule);
    if (found == findings.end()) throw std::runtime_error("the scene of " + rule + " does not break it");
    CircuitView view(session);
    view.resize(200, 200);
    view.SetOverlay("checks", FindingsOverlay(catalogue, project.Design.Circuit, findings, {&*found}));
    view.show();
    QApplication::processEvents();
    if (!view.grab().save(file)) throw std::runtime_error("not written: " + file.toStdString());
    std::cout << file.toStdString() << '\n';
}

} // namespace

void PhotographRules(const Catalogue& catalogue, const QString& folder) {
    for (const Rule& rule : Rules())
        PhotographRule(catalogue, rule.Id, folder + "/rule-" + rule.Id + ".png");
}

} // namespace pistaro
