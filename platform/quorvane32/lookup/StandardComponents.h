#pragma once

#include "platform/quorvane32/lookup/QuorQuery.h"

namespace quorvane {

/// Makes the client library's own components. One lives as long as the program and is handed down by
/// reference; the window sizes that it remembers end with it.
class StandardComponents : public ComponentFactory {
public:
    explicit StandardComponents(const RegionalSettings& regional);

    std::unique_ptr<LookupComponent> createLookup(const QString& programId) override;
    std::unique_ptr<AboutComponent> createAbout(const QString& programId) override;

private:
    RegionalSettings m_regional;
    std::shared_ptr<LookupSizes> m_sizes;
};

} // namespace quorvane
