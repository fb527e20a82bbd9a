#pragma once

#include <string>
#include <utility>

class WorldModel;

// Root of all plans: a plan has an instance name and reads one world model (not owned). A plan
// object lives for one decision; what it remembers between cycles is in class statics.
class BasicPlan {
public:
    BasicPlan(std::string name, const WorldModel* wm);
    virtual ~BasicPlan() = default;
    BasicPlan(const BasicPlan&) = default;
    BasicPlan& operator=(const BasicPlan&) = default;

    virtual bool isFinished();
    virtual double successRate();
    virtual void decide();

    std::string getName() const { return planName; }
    void setName(std::string name) { planName = std::move(name); }

protected:
    const WorldModel* wm;

private:
    std::string planName;
};
