// The verb that joins the guide's writer and those who draw its pictures.
#include "cli/start.h"
#include "cli/verbs.h"
#include "imaging/circuit_picture.h"
#include "imaging/piece_picture.h"
#include "platform/platform.h"
#include "report/guide.h"

namespace pistaro {

void GuideVerb(const VerbContext& context, const std::filesystem::path& circuit, const OptionalPath& folder) {
    constexpr const char* format = "gif";
    Project project = StartWithCircuit(context, circuit);
    const std::filesystem::path into = folder.value_or(circuit.parent_path());
    project.WorkingDirectory = TextFromPath((into.empty() ? "." : into) / "");
    const OffscreenGraphics graphics;
    const GuidePictures pictures{
        .Piece = [](const Project& design, std::string_view code) { return PiecePicture(design, code, format); },
        .Circuit = [](Project& design) { return CircuitPicture(design, PictureOptions().Pixels, {}, format); }};
    for (const std::filesystem::path& file : WriteGuide(project, pictures, [](int, int) {}))
        context.Output << TextFromPath(into / file.filename()) << '\n';
}

} // namespace pistaro
