#include "platform/quorvane32/lookup/StandardComponents.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/lookup/QuorAbout.h"

namespace quorvane {

namespace {

void checkProgramId(const QString& programId, QStringView known) {
    if (programId.compare(known, Qt::CaseInsensitive) != 0)
        throw RunTimeError(ErrorCannotCreateObject, QStringLiteral("El componente no puede crear el objeto"));
}

} // namespace

StandardComponents::StandardComponents(const RegionalSettings& regional)
    : m_regional(regional), m_sizes(std::make_shared<LookupSizes>()) {}

std::unique_ptr<LookupComponent> StandardComponents::createLookup(const QString& programId) {
    checkProgramId(programId, u"Quorvane32.QuorQuery");
    return std::make_unique<QuorQuery>(m_regional, m_sizes);
}

std::unique_ptr<AboutComponent> StandardComponents::createAbout(const QString& programId) {
    checkProgramId(programId, u"Quorvane32.QuorAbout");
    return std::make_unique<QuorAbout>();
}

} // namespace quorvane
