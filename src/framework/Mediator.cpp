#include "framework/Mediator.h"

namespace zt {

std::shared_ptr<Mediator> Mediator::withMediatorName(std::string name, std::any view) {
    return makeMediator<Mediator>(std::move(name), std::move(view));
}

}  // namespace zt
