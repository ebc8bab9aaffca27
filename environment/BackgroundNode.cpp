#include "environment/BackgroundNode.h"

#include "scene/LevelText.h"

#include <QTextStream>

void BackgroundNode::drawSkyAndGround(float) {
    BackgroundRenderer::drawSkyAndGround(0);
}

void BackgroundNode::draw(float time) {
    drawSkyAndGround(time);
}

void BackgroundNode::drawSecondPass(float) {
    BackgroundRenderer::drawWater(0);
}

void BackgroundNode::initGL() {
    BackgroundRenderer::initGL();
}

void BackgroundNode::writeXml(QTextStream &out) const {
    QByteArray text = "<BackgroundNode  groundTexture=\"" + attributeText(groundTexture) +
                      "\" waterTexture=\"" + attributeText(waterTexture) + "\" cubeTexture=\"" +
                      attributeText(cubeTexture) + "\" birdTexture=\"" + attributeText(birdTexture) + "\">\n";
    appendReals(text, groundColor);
    text += ' ';
    appendReals(text, waterColor);
    text += ' ';
    appendReals(text, sunColor);
    text += ' ';
    appendInt(text, dayTime);
    for (const bool flag : {water, fog, waterWalking, craters, bengala, deathTouch, dynamicTime}) {
        text += flag ? " 1" : " 0";
    }
    text += ' ';
    appendInt(text, sunSpeed);
    text += ' ';
    appendReal(text, gravity);
    text += ' ';
    appendInt(text, birdsNumber);
    out << text << "</BackgroundNode>\n";
}

bool BackgroundNode::readXml(QDomElement element, CISG *) {
    if (element.tagName() != QLatin1String("BackgroundNode")) {
        return false;
    }
    const QString none = QStringLiteral(" ");
    groundTexture = element.attribute(QStringLiteral("groundTexture"), none);
    waterTexture = element.attribute(QStringLiteral("waterTexture"), none);
    cubeTexture = element.attribute(QStringLiteral("cubeTexture"), none);
    birdTexture = element.attribute(QStringLiteral("birdTexture"), none);
    ValueReader values(element.text());
    values.read(groundColor);
    values.read(waterColor);
    values.read(sunColor);
    values.read(dayTime);
    for (bool *flag : {&water, &fog, &waterWalking, &craters, &bengala, &deathTouch, &dynamicTime}) {
        values.read(*flag);
    }
    values.read(sunSpeed);
    values.read(gravity);
    values.read(birdsNumber);
    return true;
}
