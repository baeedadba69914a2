#pragma once

#include <QString>

// Fills a fresh database, made from the shipped schema, with articles, customers and
// invoices of a realistic shape: Dutch names and addresses, 1 to 30 lines per invoice with
// their amounts worked out as the program does. The same count and seed give the same file.
struct GeneratorCounts {
    int articles = 1000;
    int customers = 1000;
    int invoices = 1000;
};

void generateDatabase(const QString& file, const GeneratorCounts& counts, unsigned seed = 1);
