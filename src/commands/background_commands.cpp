#include "commands/background_commands.h"

#include "editor/view_commands.h"
#include "imaging/backdrop.h"
#include "platform/fault.h"
#include "storage/background_file.h"

#include <cmath>

namespace pistaro {

namespace {

bool IsThere(const std::filesystem::path& file) {
    std::error_code reason;
    if (std::filesystem::status(file, reason).type() == std::filesystem::file_type::not_found) return false;
    return reason != std::errc::filename_too_long; // any other reason is told when it is read
}

/// The picture in the middle of the view, upright.
ScaledBackground InMiddleOf(const Design& design, std::string&& picture) {
    const double cosine = std::cos(double{design.Room.Angle});
    const double sine = std::sin(double{design.Room.Angle});
    return {.Picture = std::make_shared<const std::string>(std::move(picture)),
            .X = design.View.MidX * cosine - design.View.MidY * sine,
            .Y = design.View.MidY * cosine + design.View.MidX * sine,
            .Angle = -double{design.Room.Angle}};
}

void TellingFaults(Session& session, const std::function<void()>& read) {
    try {
        read();
    } catch (const Fault& fault) {
        session.Prompts.Tell(
            {Icon::Exclamation, std::string(fault.what()) + "\nThe circuit is loaded without the picture under it."});
    }
}

/// A script shows no picture: it goes along as it is.
void Decode(Session& session, const ScaledBackground& background, const std::filesystem::path& file) {
    if (session.Windows != nullptr) session.Pictures.Of(background.Picture, TextFromPath(file));
}

/// What the picture under the circuit covers; nothing where there is none that can be seen.
std::optional<GroundBox> GroundOfPicture(Session& session) {
    const Project& project = session.Project;
    if (!project.Background || session.Windows == nullptr) return std::nullopt;
    try {
        const Box box = GroundUnder(*project.Background, project.Design.Room, session.Pictures);
        return GroundBox{box.Left, box.Right, box.Bottom, box.Top};
    } catch (const Fault&) {
        return std::nullopt; // as was told when the circuit was loaded
    }
}

bool IsInView(const GroundBox& box, const ViewSettings& view) {
    const ViewRectangle shown = ShownRectangle(view);
    return box.Left >= shown.ViewLeft && box.Right <= shown.ViewRight && box.Bottom >= shown.ViewBottom &&
           box.Top <= shown.ViewTop;
}

/// Fits the view where the picture reaches beyond it.
void BringIntoView(Session& session) {
    const auto ground = GroundOfPicture(session);
    if (ground && !IsInView(*ground, session.Project.Design.View)) FitCommand(session);
}

/// Of a circuit that was replaced by one without. What is no background is left alone. Gives whether it is gone.
bool RemoveBackground(const std::filesystem::path& file) {
    if (!IsThere(file)) return false;
    try {
        ReadBackground(file);
    } catch (const Fault&) {
        return false; // it is none of ours
    }
    std::error_code reason;
    std::filesystem::remove(file, reason);
    if (reason) throw Fault("Permission denied", TextFromPath(file) + ": the old background stays there");
    return true;
}

} // namespace

void FitCommand(Session& session) { FitView(session.Catalogue, session.Project.Design, GroundOfPicture(session)); }

void ImportBackgroundCommand(Session& session) {
    const auto file = session.Prompts.ChooseFile({.Saving = false,
                                                  .Title = "Import Background to Scale",
                                                  .Filter = "Pictures: PNG, JPEG, BMP, GIF|"
                                                            "*.png;*.jpg;*.jpeg;*.bmp;*.gif|All files|*",
                                                  .DefaultName = "",
                                                  .Folder = session.Project.Preferences.WorkingDirectory});
    if (!file) return;
    const ScaledBackground proposed = InMiddleOf(session.Project.Design, ReadFile(*file, MostPictureBytes));
    session.Pictures.Of(proposed.Picture, TextFromPath(*file)); // a fault when it is none
    session.Windows->ShowBackground(proposed);
    const auto& laid = session.Project.Background;
    if (!laid || laid->Picture != proposed.Picture) return;
    BringIntoView(session);
    if (!session.Windows->IsPanelShown(Panel::Picture)) session.Windows->TogglePanel(Panel::Picture);
}

void PlaceBackgroundCommand(Session& session) {
    const auto before = session.Project.Background;
    session.Windows->ShowBackground(*before);
    if (session.Project.Background != before) BringIntoView(session);
}

void SetBackground(Session& session, std::shared_ptr<const ScaledBackground> background) {
    session.Project.Background = std::move(background);
    session.Project.EditState.DataChanged = true;
}

void LoadBackground(Session& session) {
    const std::filesystem::path file = BackgroundFileOf(session.Project.EditState.File);
    const bool wasThere = session.KeptBackground.File == file && session.KeptBackground.Value;
    session.KeptBackground = {};
    TellingFaults(session, [&] {
        if (!IsThere(file)) {
            if (wasThere) throw Fault("File not found", TextFromPath(file));
            return;
        }
        session.Project.Background = std::make_shared<const ScaledBackground>(ReadBackground(file));
        session.KeptBackground = {file, session.Project.Background};
        Decode(session, *session.Project.Background, file);
    });
}

std::shared_ptr<const ScaledBackground> BackgroundBeside(Session& session, const std::filesystem::path& work) {
    const std::filesystem::path file = BackgroundFileOf(work);
    std::shared_ptr<const ScaledBackground> background;
    TellingFaults(session, [&] {
        if (!IsThere(file)) return;
        background = std::make_shared<const ScaledBackground>(ReadBackground(file));
        Decode(session, *background, file);
    });
    return background;
}

void CopyBackground(const std::filesystem::path& from, const std::filesystem::path& to) {
    const std::filesystem::path source = BackgroundFileOf(from);
    if (IsThere(source)) {
        ReplaceFile(BackgroundFileOf(to), BackgroundBytes(ReadBackground(source)));
    } else {
        RemoveBackground(BackgroundFileOf(to));
    }
}

BackgroundToSave::BackgroundToSave(Session& session, const std::filesystem::path& circuit)
    : session_(session), file_(BackgroundFileOf(std::filesystem::absolute(circuit).lexically_normal())) {
    const auto& background = session.Project.Background;
    const KeptBackground& kept = session.KeptBackground;
    const bool stands = kept.File == file_ && kept.Value == background && IsThere(file_);
    if (background && !stands) written_.emplace(file_, BackgroundBytes(*background));
}

void BackgroundToSave::TakePlace() {
    try {
        if (written_) written_->TakePlace();
    } catch (const Fault&) {
        session_.Project.EditState.DataChanged = true;
        throw;
    }
    const auto& background = session_.Project.Background;
    if (background || !IsThere(file_)) {
        session_.KeptBackground = {file_, background};
        return;
    }
    if (RemoveBackground(file_)) session_.KeptBackground = {};
}

} // namespace pistaro
