#include "hostmodel/facade_classes.h"

#include "hostmodel/mapper.h"
#include "hostmodel/mi_props.h"
#include "hostmodel/mi_props_label_props.h"
#include "hostmodel/mi_props_style.h"

namespace vellant::hostmodel {

namespace {

template <class Facade>
void registerFacade(platform::AutomationRegistry& registry, FacadeContext& context) {
    registry.registerClass(Facade::kClassName,
                           [&context] { return std::make_shared<Facade>(context); });
}

} // namespace

void registerFacadeClasses(platform::AutomationRegistry& registry, FacadeContext& context) {
    registerFacade<Mapper>(registry, context);
    registerFacade<MIProps>(registry, context);
    registerFacade<MIPropsStyle>(registry, context);
    registerFacade<MIPropsLabelProps>(registry, context);
    // The label style has no members and needs no session.
    registry.registerClass(MIPropsLabelStyle::kClassName,
                           [] { return std::make_shared<MIPropsLabelStyle>(); });
}

void unregisterFacadeClasses(platform::AutomationRegistry& registry) {
    for (const char* name : {Mapper::kClassName, MIProps::kClassName, MIPropsStyle::kClassName,
                             MIPropsLabelProps::kClassName, MIPropsLabelStyle::kClassName})
        registry.unregisterClass(name);
}

} // namespace vellant::hostmodel
