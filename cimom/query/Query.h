#pragma once

#include <string>

#include "cimom/query/Condition.h"
#include "cimom/schema/ClassWriter.h"

namespace cimom {

/// A query in WQL over the instances of one namespace:
///
///     SELECT * | property, ... FROM class [WHERE condition]
///
/// A condition is made with AND, OR, NOT and brackets of comparisons (= <> != < <= > >=), IS [NOT] NULL,
/// [NOT] LIKE and ISA; texts are compared to the letter. "__CLASS" is the name of an instance's class,
/// "__this" the instance.
class Query {
public:
    /// Throws CimError (invalid query), which says where. The store must outlive the query.
    static Query read(const std::string& text, const ClassStore& classes);

    const ClassView& from() const { return *from_; }

    /// What is selected of each instance; absent: all.
    const PropertySelection& properties() const { return properties_; }

    bool selects(const Instance& instance) const { return !where_ || where_(instance) == Truth::Yes; }

private:
    friend class QueryReader;
    Query() = default;

    const ClassView* from_ = nullptr;
    PropertySelection properties_;
    Condition where_;
};

}  // namespace cimom
