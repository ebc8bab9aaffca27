#include "tools/assets/AssetTree.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdlib>

namespace {

std::vector<AssetJob> allJobs() {
    std::vector<AssetJob> jobs = pictureJobs();
    // The longest jobs first, so that no thread is left alone with one at the end.
    std::vector<AssetJob> characters = characterJobs();
    jobs.insert(jobs.begin(), std::make_move_iterator(characters.begin()),
                std::make_move_iterator(characters.end()));
    return jobs;
}

} // namespace

/// Writes the editor's data tree: druvelk-assets [--only PREFIX] OUTPUT_DIR
int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Makes the pictures and models that the editor names."));
    parser.addHelpOption();
    const QCommandLineOption only(
        QStringLiteral("only"), QStringLiteral("Make only what begins with PREFIX, such as textures/grass."),
        QStringLiteral("PREFIX"));
    parser.addOption(only);
    parser.addPositionalArgument(QStringLiteral("OUTPUT_DIR"), QStringLiteral("The tree's top directory."));
    parser.process(application);
    if (parser.positionalArguments().size() != 1) {
        parser.showHelp(EXIT_FAILURE);
    }
    std::vector<AssetJob> jobs = allJobs();
    std::erase_if(jobs, [&](const AssetJob &job) { return !job.name.startsWith(parser.value(only)); });
    if (jobs.empty()) {
        qWarning().noquote() << "nothing begins with" << parser.value(only);
        return EXIT_FAILURE;
    }
    return makeAssetTree(jobs, QDir(parser.positionalArguments().constFirst())) ? EXIT_SUCCESS : EXIT_FAILURE;
}
