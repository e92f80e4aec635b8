#include "PlanNews.h"

PlanNews& PlanNews::instance()
{
    static PlanNews news;
    return news;
}
