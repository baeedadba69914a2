// generate_database <file> <articles> <customers> <invoices>
// Writes a fresh database of the given size for the benchmarks (or to try the program on).
#include <QCoreApplication>
#include <QStringList>
#include <cstdio>
#include <exception>

#include "DataGenerator.h"

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() != 5) {
        std::fprintf(stderr, "usage: generate_database <file> <articles> <customers> <invoices>\n");
        return 2;
    }
    try {
        generateDatabase(args[1], {args[2].toInt(), args[3].toInt(), args[4].toInt()});
    } catch (const std::exception& error) {
        std::fprintf(stderr, "generate_database: %s\n", error.what());
        return 1;
    }
    return 0;
}
