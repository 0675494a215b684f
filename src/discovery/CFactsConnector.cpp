#include "discovery/CFactsConnector.h"

#include <utility>

CFactsConnector::CFactsConnector(std::shared_ptr<Connector> channel_I, SDisplayFacts facts_I)
    : mChannel(std::move(channel_I)), mFacts(std::move(facts_I)) {}
